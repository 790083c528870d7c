// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"
#include "platform/CPUCounters.h"
#include "platform/RestartingTicks.h"

#include <string>
#include <string_view>

namespace orrinvale
{

// Ticks from /proc/stat. Single counters of it may fall by a little (iowait does), so each one handed out is the
// maximum of its readings. One that falls by much has begun anew (a processor that was offline, on some kernels a
// resume), and its processor does so too, with all four at zero. They count from this object's making.
class LinuxCPUCounters final : public CPUCounters
{
public:
    explicit LinuxCPUCounters(const std::string& statFile = "/proc/stat");
    LinuxCPUCounters(const LinuxCPUCounters&) = delete;
    LinuxCPUCounters& operator=(const LinuxCPUCounters&) = delete;

    Host host() override;                                           // reads the file; status: errno
    std::optional<std::vector<std::int32_t>> processors() override; // of the same reading

private:
    using Ticks = RestartingTicks::Growth; // user, system, idle, nice
    struct Counter {
        std::optional<Ticks> highest;
        RestartingTicks ticks;
        bool hasRestarted(const Ticks& reading) const;
        void update(const Ticks& reading);
    };

    int read();
    void parse(std::string_view text);
    void parseLine(std::string_view line);

    Descriptor m_file;
    int m_openError;
    std::string m_text;
    Counter m_host;
    std::vector<Counter> m_processors;
};

} // namespace orrinvale
