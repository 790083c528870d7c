// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace orrinvale
{

// Starts the application when the user logs in.
class LoginItem
{
public:
    virtual ~LoginItem() = default;
    // Each returns the description of what went wrong; nullopt is success.
    virtual std::optional<std::string> registerApplication() = 0;
    virtual std::optional<std::string> unregisterApplication() = 0;
};

} // namespace orrinvale
