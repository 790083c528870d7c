// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InstalledApplications.h"
#include "platform/macos/Workspace.h"

#include <filesystem>

namespace orrinvale
{

// The bundles in the system's five folders for applications, each folder one level deep. Keeps nothing.
class MacInstalledApplications final : public InstalledApplications
{
public:
    MacInstalledApplications(Workspace& workspace, const std::filesystem::path& home);
    // The folders in order of precedence.
    MacInstalledApplications(Workspace& workspace, std::vector<std::filesystem::path> folders);

    std::vector<InstalledApplication> scan() const override;
    std::optional<InstalledApplication> find(const std::string& bundleIdentifier) const override;

private:
    std::optional<InstalledApplication> applicationAt(const std::filesystem::path& path) const;

    Workspace& m_workspace;
    std::vector<std::filesystem::path> m_folders;
};

} // namespace orrinvale
