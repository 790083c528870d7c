// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacInstalledApplications.h"

#include "base/Text.h"

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view suffix = ".app";

std::string withoutSuffixes(std::string name)
{
    for (auto at = name.find(suffix); at != name.npos; at = name.find(suffix))
        name.erase(at, suffix.size());
    return name;
}

} // namespace

MacInstalledApplications::MacInstalledApplications(Workspace& workspace, const fs::path& home)
    : MacInstalledApplications(workspace,
                               std::vector<fs::path>{"/Applications", home / "Applications", "/Applications/Utilities",
                                                     "/System/Applications", "/System/Applications/Utilities"})
{
}

MacInstalledApplications::MacInstalledApplications(Workspace& workspace, std::vector<fs::path> folders)
    : m_workspace(workspace), m_folders(std::move(folders))
{
}

std::vector<InstalledApplication> MacInstalledApplications::scan() const
{
    std::vector<InstalledApplication> applications;
    for (const auto& folder : m_folders) {
        std::error_code error;
        for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
            if (!each->path().native().ends_with(suffix))
                continue;
            if (auto application = applicationAt(each->path()))
                applications.push_back(std::move(*application));
        }
    }
    return applications;
}

std::optional<InstalledApplication> MacInstalledApplications::find(const std::string& bundleIdentifier) const
{
    const auto path = m_workspace.pathOfApplication(bundleIdentifier);
    return path ? applicationAt(*path) : std::nullopt;
}

std::optional<InstalledApplication> MacInstalledApplications::applicationAt(const fs::path& path) const
{
    auto facts = m_workspace.bundle(path.native());
    if (!facts || !facts->identifier)
        return std::nullopt;
    const auto text = validUtf8(path.native());
    auto name = facts->displayName ? *facts->displayName
                                   : facts->name.value_or(withoutSuffixes(validUtf8(path.filename().native())));
    return InstalledApplication{std::move(*facts->identifier), std::move(name), text, text};
}

} // namespace orrinvale
