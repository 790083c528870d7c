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
    // By the whole path of a program or script, else by its last component. Of several entries that start it the one
    // with the fewest arguments counts: a browser is not what it shows in a window of its own.
    const DesktopEntry* byProgram(const std::string& path) const;
    // The ids of all entries whose processes go by that: a sandbox may hold several applications.
    const std::vector<std::string>& idsOf(const std::string& applicationId) const;

private:
    struct Program {
        std::string id;
        std::size_t arguments; // how many it is started with
    };
    void add(DesktopEntry entry);
    void addProgram(const std::string& path, const DesktopEntry& entry);

    std::map<std::string, DesktopEntry> m_entries;                    // by id
    std::map<std::string, std::vector<std::string>> m_applicationIds; // ids by what the processes go by
    std::map<std::string, Program> m_programs;                        // by path, and by last component
};

} // namespace orrinvale
