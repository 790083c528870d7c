// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CPUCounters.h"

namespace orrinvale
{

class FakeCPUCounters final : public CPUCounters
{
public:
    Host answer{0, {0, 0, 0, 0}};
    std::optional<std::vector<std::int32_t>> cores;
    int hostReads = 0;
    int processorReads = 0;

    // Lets the whole machine have worked for `busy` of 100 further ticks.
    void addHostLoad(std::uint32_t busy)
    {
        answer.ticks.user += busy;
        answer.ticks.idle += 100 - busy;
    }

    // The same for one core, which is made when it is missing.
    void addCoreLoad(std::size_t core, std::int32_t busy)
    {
        if (!cores)
            cores.emplace();
        if (cores->size() < (core + 1) * 4)
            cores->resize((core + 1) * 4);
        (*cores)[core * 4] += busy;
        (*cores)[core * 4 + 2] += 100 - busy;
    }

    Host host() override
    {
        ++hostReads;
        return answer;
    }

    std::optional<std::vector<std::int32_t>> processors() override
    {
        ++processorReads;
        return cores;
    }
};

} // namespace orrinvale
