// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningApplications.h"
#include "platform/linux/DesktopEntryIndex.h"
#include "platform/linux/ProcFolder.h"

#include <chrono>
#include <map>

namespace orrinvale
{

class ProcessEnvironment;

// One look at the user's processes after another: which application each belongs to, remembered for as long as the
// process lives. A process is judged again when its name changed, and while it is young: a launcher has not yet become
// the program it launches. Used on one background thread.
class ApplicationWalk
{
public:
    ApplicationWalk(std::string procFolder, std::vector<std::filesystem::path> entryFolders);

    // In the order of their start, each application once.
    std::vector<RunningApplication> walk(std::chrono::steady_clock::time_point now);

private:
    struct Process {
        std::string comm;
        std::chrono::steady_clock::time_point firstSeen;
        std::optional<RunningApplication> application;
        std::string unit;           // the innermost systemd unit
        bool isKnownByUnit = false; // the unit named it, rather than its own program
    };
    using Key = std::pair<std::uint64_t, std::int32_t>; // start time, pid: the oldest first

    void visit(std::int32_t pid, std::chrono::steady_clock::time_point now, std::map<Key, Process>& seen);
    void identify(std::int32_t pid, Process& process) const;
    std::optional<RunningApplication> applicationOfProgram(std::int32_t pid, const std::string& program) const;
    std::optional<RunningApplication> applicationOfSurroundings(std::int32_t pid, const std::string& unit,
                                                                const std::string& program) const;
    std::optional<std::string> idOfSurroundings(std::int32_t pid, const std::string& unit,
                                                const std::string& program) const;
    std::optional<std::string> idOfImage(const ProcessEnvironment& environment, const std::string& program) const;
    const DesktopEntry* entryOfProgram(std::int32_t pid, const std::string& executable) const;

    std::string m_procFolder;
    DesktopEntryIndex m_index;
    std::map<Key, Process> m_processes;
};

} // namespace orrinvale
