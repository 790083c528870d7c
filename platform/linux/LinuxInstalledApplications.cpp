// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxInstalledApplications.h"

#include "base/Text.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/DesktopEntry.h"

namespace orrinvale
{

namespace
{

InstalledApplication applicationOf(DesktopEntry entry)
{
    return {bundleIdentifierOf(entry.applicationId), std::move(entry.name), validUtf8(entry.path.string()),
            std::move(entry.icon)};
}

} // namespace

LinuxInstalledApplications::LinuxInstalledApplications(std::vector<std::filesystem::path> entryFolders)
    : m_folders(std::move(entryFolders))
{
}

std::vector<InstalledApplication> LinuxInstalledApplications::scan() const
{
    std::vector<InstalledApplication> applications;
    for (auto& entry : readDesktopEntries(m_folders)) {
        if (entry.isShown)
            applications.push_back(applicationOf(std::move(entry)));
    }
    return applications;
}

std::optional<InstalledApplication> LinuxInstalledApplications::find(const std::string& bundleIdentifier) const
{
    for (const auto& id : desktopIdsOf(bundleIdentifier)) {
        if (auto entry = readDesktopEntry(m_folders, id))
            return applicationOf(std::move(*entry));
    }
    for (auto& entry : readDesktopEntries(m_folders)) { // the id of a sub-folder, a pattern, a sandbox's other name
        if (bundleIdentifierOf(entry.applicationId) == bundleIdentifier)
            return applicationOf(std::move(entry));
    }
    return std::nullopt;
}

} // namespace orrinvale
