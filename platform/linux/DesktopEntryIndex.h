// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DesktopEntry.h"

#include <map>

namespace orrinvale
{

// The desktop entries of some folders, found by id and by the program they start. Used on one background thread.
class DesktopEntryIndex
{
public:
    explicit DesktopEntryIndex(std::vector<std::filesystem::path> folders);

    // Reads the folders anew when something came or went in them or below, and whether it did.
    bool update();
    // By its id, else by what its processes go by.
    const DesktopEntry* byId(const std::string& id) const;
    // By the whole path of a program or script, else by its last component.
    const DesktopEntry* byProgram(const std::string& path) const;

private:
    using Stamps = std::vector<std::filesystem::file_time_type>;
    Stamps stamps() const;
    void watchSubfolders();
    void add(DesktopEntry entry);

    std::vector<std::filesystem::path> m_folders;
    std::vector<std::filesystem::path> m_watched; // with their sub-folders
    std::optional<Stamps> m_stamps;
    std::map<std::string, DesktopEntry> m_entries;       // by id
    std::map<std::string, std::string> m_applicationIds; // id by what the processes go by
    std::map<std::string, std::string> m_programs;       // id by path, and by last component
};

} // namespace orrinvale
