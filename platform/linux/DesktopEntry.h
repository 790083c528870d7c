// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

// One application as a desktop entry describes it; texts are UTF-8.
struct DesktopEntry {
    std::string id;            // without ".desktop"
    std::string applicationId; // what its processes go by: the id, or the name of its Flatpak or snap
    std::string name;          // in the user's language
    std::string icon;          // a name in the icon theme or an absolute path; may be empty
    std::string exec;          // the command line, not unescaped
    std::filesystem::path path;
    bool isRegular; // shown in menus, and no program for a terminal
    bool isShown;   // shown in the menus of this desktop
};

// The XDG application folders, in order of precedence.
std::vector<std::filesystem::path> userEntryFolders();

// All entries of the folders, in the order of the folders and then of the ids. The first folder wins an id; malformed
// entries, hidden ones with all that they hide, and those whose program is missing are left out.
std::vector<DesktopEntry> readDesktopEntries(const std::vector<std::filesystem::path>& folders);
// The entry of that id alone; nullopt when there is none or it is hidden.
std::optional<DesktopEntry> readDesktopEntry(const std::vector<std::filesystem::path>& folders, const std::string& id);

// The program that an Exec line really starts: behind env, sh -c and interpreters; empty for flatpak run and the like.
std::string startedProgram(const std::string& exec);

// How many words an Exec line has besides what stands for files and addresses.
std::size_t argumentCount(const std::string& exec);

// Whether a program only carries out another file: a shell, python, java, node …
bool isInterpreter(const std::string& program);
// The script, archive or program among an interpreter's arguments; empty when there is none.
std::string interpretedFile(const std::vector<std::string>& arguments);

} // namespace orrinvale
