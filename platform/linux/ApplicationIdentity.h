// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// The one place where a desktop-entry id and a bundle identifier meet: applications that the application knows by a
// bundle identifier have it on Linux too, every other one goes by its desktop-entry id.

// `desktopId` without ".desktop"; a snap's is "<package>_<application>".
std::string bundleIdentifierOf(const std::string& desktopId);
// The way back: the ids that may bear that identifier, its own spelling included; those of a pattern are not listed.
std::vector<std::string> desktopIdsOf(const std::string& bundleIdentifier);

// For programs that are known by the name of their executable alone, desktop entry or not; nullopt for others.
std::optional<std::string> bundleIdentifierOfExecutable(std::string_view path);

} // namespace orrinvale
