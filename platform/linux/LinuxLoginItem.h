// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

#include <filesystem>

namespace orrinvale
{

// An autostart entry of the user's desktop, "orrinvale.desktop".
class LinuxLoginItem final : public LoginItem
{
public:
    LinuxLoginItem(const std::filesystem::path& autostartFolder, std::filesystem::path executable);

    std::optional<std::string> registerApplication() override;
    std::optional<std::string> unregisterApplication() override;

private:
    std::string entry() const;

    std::filesystem::path m_file;
    std::filesystem::path m_executable;
};

} // namespace orrinvale
