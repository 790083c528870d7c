// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "base/MainQueue.h"
#include "base/SerialQueue.h"
#include "platform/ProcessStatus.h"

#include <cstdint>
#include <map>

namespace orrinvale
{

// Processor shares from two readings of /proc/PID/stat a good second apart. Kernel threads and the session's own
// machinery are left out. Main thread; the readings are taken in the background.
class LinuxProcessStatus final : public ProcessStatus
{
public:
    LinuxProcessStatus(MainQueue& queue, SerialQueue& background, std::string procFolder = "/proc");

    void prepare() override;
    void forget() override;
    std::optional<std::string> table() override { return m_table; }

private:
    void finish(const std::optional<std::string>& table);

    MainQueue& m_queue;
    SerialQueue& m_background;
    std::string m_procFolder;
    std::optional<std::string> m_table;
    bool m_isMeasuring = false;
    Cancellable m_secondReading;
    Lifetime m_lifetime;
};

// One reading: ticks by (pid, start time).
struct ProcessTicks {
    std::uint64_t ticks; // user and system, in clock ticks
    std::string comm;
    friend bool operator==(const ProcessTicks&, const ProcessTicks&) = default;
};
using ProcessReading = std::map<std::pair<std::int32_t, std::uint64_t>, ProcessTicks>;

// nullopt when the processes cannot be told.
std::optional<ProcessReading> readProcesses(const std::string& procFolder);
// The table over the interval between two readings.
std::string processTable(const std::string& procFolder, const ProcessReading& first, const ProcessReading& second,
                         std::chrono::duration<double> interval);

} // namespace orrinvale
