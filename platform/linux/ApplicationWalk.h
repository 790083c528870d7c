// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningApplications.h"
#include "platform/linux/DesktopEntryIndex.h"
#include "platform/linux/ProcFolder.h"

#include <chrono>
#include <map>
#include <memory>

namespace orrinvale
{

class ProcessEnvironment;

// One look at the user's processes after another: which application each belongs to, remembered for as long as the
// process lives. A process is judged again when its name changed, and while it is young: a launcher has not yet become
// the program it launches.
//
// A systemd unit that is named after an application stands for it only while its main process lives: the first one that
// was seen in it. What an application starts stays in its unit, and some of it outlives the application by hours (adb,
// Gradle's daemon). While the unit is young its main process may change, as launchers end when they have launched.
//
// Used on one background thread.
class ApplicationWalk
{
public:
    explicit ApplicationWalk(std::string procFolder);

    // In the order of their start, each application once; those of the last look when the processes cannot be told.
    // With another index than before every process is judged anew.
    std::vector<RunningApplication> walk(std::shared_ptr<const DesktopEntryIndex> index,
                                         std::chrono::steady_clock::time_point now);

private:
    struct Process {
        std::string comm{};
        std::chrono::steady_clock::time_point firstSeen;
        std::chrono::steady_clock::time_point judged{};
        std::optional<RunningApplication> application{};
        std::string unit{};         // the innermost systemd unit, where it names an application
        bool isKnownByUnit = false; // the unit named it, rather than its own program
    };
    using Key = std::pair<std::uint64_t, std::int32_t>; // start time, pid: the oldest first
    struct Unit {
        Key leader; // its main process
        std::chrono::steady_clock::time_point firstSeen;
        bool isLeftBehind; // its main process has ended
    };

    std::vector<RunningApplication> applications() const;
    void followUnits(std::chrono::steady_clock::time_point now);
    void visit(std::int32_t pid, std::chrono::steady_clock::time_point now, std::map<Key, Process>& seen);
    void identify(std::int32_t pid, Process& process) const;
    std::optional<RunningApplication> applicationOfProgram(std::int32_t pid, const std::string& program) const;
    std::optional<RunningApplication> applicationOfSurroundings(std::int32_t pid, const std::string& unit,
                                                                const std::string& program) const;
    RunningApplication applicationOfId(const std::string& id) const;
    std::optional<std::string> idOfSurroundings(std::int32_t pid, const std::string& unit,
                                                const std::string& program) const;
    std::optional<std::string> idOfImage(const ProcessEnvironment& environment, const std::string& program) const;
    void addIdentifiers(RunningApplication& application, const std::string& program) const;
    const DesktopEntry* entryOfProgram(std::int32_t pid, const std::string& executable) const;

    std::string m_procFolder;
    std::shared_ptr<const DesktopEntryIndex> m_index;
    std::chrono::steady_clock::time_point m_judgement{}; // what was judged before is judged anew
    std::map<Key, Process> m_processes;
    std::map<std::string, Unit> m_units;
};

} // namespace orrinvale
