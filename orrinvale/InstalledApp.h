// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

struct InstalledApplication;
struct RunningApplication;

// An application that the user may put on the watch list. All texts are UTF-8.
struct InstalledApp {
    std::string id; // its bundle identifier
    std::string name;
    std::optional<std::string> icon; // a name in the icon theme, or a file's absolute path
    std::string path;                // empty for one that is only known because it runs

    friend bool operator==(const InstalledApp&, const InstalledApp&) = default;
};

// What is installed, and what else runs as a regular application: each identifier once, the first one found, in the
// order of the names in that language. Any thread.
std::vector<InstalledApp> installedApps(std::vector<InstalledApplication> installed,
                                        const std::vector<RunningApplication>& running, const std::string& locale);

} // namespace orrinvale
