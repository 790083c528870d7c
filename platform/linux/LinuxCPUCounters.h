// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CPUCounters.h"

#include <array>
#include <string>
#include <string_view>

namespace orrinvale
{

// Ticks from /proc/stat. Single counters of it may fall by a little (iowait does), so each one handed out is the
// maximum of its readings. One that falls by much has begun anew (a processor that was offline, on some kernels a
// resume), and its processor does so too, with all four at zero. They count from this object's making, and a
// processor's four begin again at zero before their sum is 2^30, so that no uptime overflows them, nor the sum of their
// differences when they fall.
class LinuxCPUCounters final : public CPUCounters
{
public:
    explicit LinuxCPUCounters(const std::string& statFile = "/proc/stat");
    ~LinuxCPUCounters() override;
    LinuxCPUCounters(const LinuxCPUCounters&) = delete;
    LinuxCPUCounters& operator=(const LinuxCPUCounters&) = delete;

    Host host() override;                                           // reads the file; status: errno
    std::optional<std::vector<std::int32_t>> processors() override; // of the same reading

private:
    using Ticks = std::array<std::uint64_t, 4>; // user, system, idle, nice
    struct Counter {
        Ticks highest{};
        Ticks base{};
        bool known = false;
        bool hasRestarted(const Ticks& reading) const;
        void update(const Ticks& reading);
        Ticks value() const;
    };

    int read();
    void parse(std::string_view text);
    void parseLine(std::string_view line);
    void restartWhenLarge();

    int m_file;
    int m_openError;
    std::string m_text;
    Counter m_host;
    std::vector<Counter> m_processors;
};

} // namespace orrinvale
