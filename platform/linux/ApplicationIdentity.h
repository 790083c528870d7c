// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// The one place where a desktop-entry id and a bundle identifier meet. On Linux an application goes by its
// desktop-entry id; some of them the application knows by a bundle identifier, and they are known as that too.

// `desktopId` without ".desktop"; a snap's is "<package>_<application>". nullopt for those with no other identifier.
std::optional<std::string> bundleIdentifierOf(const std::string& desktopId);
// The way back: the ids that are known as that identifier; those of a pattern are not listed.
std::vector<std::string> desktopIdsOf(const std::string& bundleIdentifier);

// The id of the entry that leads to a program by way of another one.
std::optional<std::string> desktopIdOfExecutable(std::string_view path);
// For programs that are known by the name of their executable alone, desktop entry or not; nullopt for others.
std::optional<std::string> bundleIdentifierOfExecutable(std::string_view path);

} // namespace orrinvale
