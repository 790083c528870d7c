// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace orrinvale
{

// Bytes that the store keeps for their owner; here always a JSON text.
struct DefaultsData {
    std::string bytes;
    friend bool operator==(const DefaultsData&, const DefaultsData&) = default;
};

using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, DefaultsData, Instant>;

// The user's settings, a typed value a key: a boolean is no number and no string. Main thread.
class UserDefaults
{
public:
    virtual ~UserDefaults() = default;
    // nullopt: nothing, or nothing readable, is stored under `key`.
    virtual std::optional<DefaultsValue> object(const std::string& key) = 0;
    // Replaces the one key and stores at once; everything else in the store stays as it is. A failure is silent.
    virtual void set(const std::string& key, DefaultsValue value) = 0;
};

} // namespace orrinvale
