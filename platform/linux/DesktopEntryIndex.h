// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DesktopEntry.h"

#include <map>

namespace orrinvale
{

// Desktop entries, found by id and by the program they start. It never changes: any thread.
class DesktopEntryIndex
{
public:
    explicit DesktopEntryIndex(std::vector<DesktopEntry> entries = {});

    // By its id, else by what its processes go by.
    const DesktopEntry* byId(const std::string& id) const;
    // By the whole path of a program or script, else by its last component.
    const DesktopEntry* byProgram(const std::string& path) const;

private:
    void add(DesktopEntry entry);

    std::map<std::string, DesktopEntry> m_entries;       // by id
    std::map<std::string, std::string> m_applicationIds; // id by what the processes go by
    std::map<std::string, std::string> m_programs;       // id by path, and by last component
};

} // namespace orrinvale
