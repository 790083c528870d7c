// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

// Names of systemd units, as /proc/PID/cgroup and the desktops write them. Any text may be asked about.

// The innermost scope or service of a text like /proc/PID/cgroup's; empty when it names none.
std::string innermostUnit(std::string_view cgroup);

// The desktop-entry id in the name of a unit, as desktops, Flatpak and snap make them; nullopt where it says nothing of
// an application.
std::optional<std::string> desktopIdOfUnit(std::string_view unit);

} // namespace orrinvale
