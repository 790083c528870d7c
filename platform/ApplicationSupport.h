// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

namespace orrinvale
{

// The user's well-known folders. A folder named here need not exist.
class ApplicationSupport
{
public:
    virtual ~ApplicationSupport() = default;
    // Where applications keep their data; nullopt when the system names none.
    virtual std::optional<std::filesystem::path> applicationSupportDirectory() = 0;
    virtual std::filesystem::path temporaryDirectory() = 0;
    // nullopt when the user has none.
    virtual std::optional<std::filesystem::path> downloadsDirectory() = 0;
    virtual std::filesystem::path homeDirectory() = 0;
};

} // namespace orrinvale
