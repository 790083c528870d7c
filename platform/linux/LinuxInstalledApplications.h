// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InstalledApplications.h"

#include <filesystem>

namespace orrinvale
{

// Reads the desktop entries each time it is asked and keeps nothing.
class LinuxInstalledApplications final : public InstalledApplications
{
public:
    // The folders in order of precedence.
    explicit LinuxInstalledApplications(std::vector<std::filesystem::path> entryFolders);

    std::vector<InstalledApplication> scan() const override;
    std::optional<InstalledApplication> find(const std::string& bundleIdentifier) const override;

private:
    std::vector<std::filesystem::path> m_folders;
};

} // namespace orrinvale
