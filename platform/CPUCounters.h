// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace orrinvale
{

// Processor time since some start, in ticks; each counter only grows.
class CPUCounters
{
public:
    struct HostTicks {
        std::uint32_t user, system, idle, nice;
    };
    struct Host {
        std::int32_t status; // 0: success
        HostTicks ticks;     // summed over all processors
    };

    virtual ~CPUCounters() = default;
    virtual Host host() = 0;
    // Four counters for each processor, in the order user, system, idle, nice; nullopt when they cannot be read.
    virtual std::optional<std::vector<std::int32_t>> processors() = 0;
};

} // namespace orrinvale
