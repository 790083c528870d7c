// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

#include <vector>

namespace orrinvale
{

class FakeLoginItem final : public LoginItem
{
public:
    std::optional<std::string> refusal; // what the next calls answer
    std::vector<bool> calls;            // true: register

    std::optional<std::string> registerApplication() override
    {
        calls.push_back(true);
        return refusal;
    }
    std::optional<std::string> unregisterApplication() override
    {
        calls.push_back(false);
        return refusal;
    }
};

} // namespace orrinvale
