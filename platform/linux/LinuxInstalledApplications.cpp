// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxInstalledApplications.h"

#include "base/Text.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/DesktopEntry.h"

#include <algorithm>

namespace orrinvale
{

namespace
{

InstalledApplication applicationOf(DesktopEntry entry)
{
    return {std::move(entry.id), std::move(entry.name), validUtf8(entry.path.string()), std::move(entry.icon)};
}

bool isKnownAs(const DesktopEntry& entry, const std::string& identifier)
{
    return entry.applicationId == identifier || bundleIdentifierOf(entry.applicationId) == identifier ||
           bundleIdentifierOf(entry.id) == identifier;
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
    if (auto entry = readDesktopEntry(m_folders, bundleIdentifier))
        return applicationOf(std::move(*entry));
    for (const auto& id : desktopIdsOf(bundleIdentifier)) {
        if (auto entry = readDesktopEntry(m_folders, id))
            return applicationOf(std::move(*entry));
    }
    auto entries = readDesktopEntries(m_folders); // the id of a sub-folder, a pattern, a sandbox's other name
    const auto firstOf = [&](const auto& predicate) { return std::find_if(entries.begin(), entries.end(), predicate); };
    auto found = firstOf([&](const auto& entry) { return entry.id == bundleIdentifier; });
    if (found == entries.end())
        found = firstOf([&](const auto& entry) { return isKnownAs(entry, bundleIdentifier); });
    return found == entries.end() ? std::nullopt : std::optional(applicationOf(std::move(*found)));
}

} // namespace orrinvale
