// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orrinvale
{

struct DesktopEntry {
    std::string id;   // without ".desktop"
    std::string name; // in the user's language, UTF-8
    bool isRegular;   // shown in menus, and no program for a terminal
};

// The desktop entries of the XDG application folders, found by id and by the program they start. The first folder wins;
// malformed and hidden entries are left out. Used on one background thread.
class DesktopEntryIndex
{
public:
    // In order of precedence.
    static std::vector<std::filesystem::path> userFolders();
    explicit DesktopEntryIndex(std::vector<std::filesystem::path> folders);

    // Reads the folders anew when one of them has changed.
    void update();
    const DesktopEntry* byId(const std::string& id) const;
    // By the whole path of a program or script, else by its last component.
    const DesktopEntry* byProgram(const std::string& path) const;

private:
    using Stamps = std::vector<std::filesystem::file_time_type>;
    Stamps stamps() const;
    void readFolder(const std::filesystem::path& folder);
    void add(const std::filesystem::path& file, std::string id);

    std::vector<std::filesystem::path> m_folders;
    std::optional<Stamps> m_stamps;
    std::map<std::string, DesktopEntry> m_entries; // by id
    std::set<std::string> m_hidden;
    std::map<std::string, std::string> m_programs; // id by path, and by last component
};

// The program that an Exec line really starts: behind env, sh -c and interpreters; empty for flatpak run and the like.
std::string startedProgram(const std::string& exec);

// Whether a program only carries out another file: a shell, python, java, node …
bool isInterpreter(const std::string& program);
// The script, archive or program among an interpreter's arguments; empty when there is none.
std::string interpretedFile(const std::vector<std::string>& arguments);

} // namespace orrinvale
