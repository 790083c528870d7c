// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <map>

namespace orrinvale
{

class FakeUserDefaults final : public UserDefaults
{
public:
    std::map<std::string, DefaultsValue> values;
    int writes = 0;

    std::optional<DefaultsValue> object(const std::string& key) override
    {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void set(const std::string& key, DefaultsValue value) override
    {
        ++writes;
        values[key] = std::move(value);
    }
};

} // namespace orrinvale
