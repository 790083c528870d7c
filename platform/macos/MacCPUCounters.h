// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CPUCounters.h"
#include "platform/RestartingTicks.h"

namespace orrinvale
{

// Ticks from the kernel, a hundred a second, in 32 bits that wrap: after 497 days of one processor, or 31 of sixteen
// together. What is handed out counts from this object's making. Main thread.
class MacCPUCounters final : public CPUCounters
{
public:
    MacCPUCounters();
    ~MacCPUCounters() override;
    MacCPUCounters(const MacCPUCounters&) = delete;
    MacCPUCounters& operator=(const MacCPUCounters&) = delete;

    Host host() override; // status: the kernel's return code
    std::optional<std::vector<std::int32_t>> processors() override;

private:
    class Counter
    {
    public:
        void update(const RestartingTicks::Ticks& reading);
        const RestartingTicks::Ticks& value() const { return m_ticks.value(); }

    private:
        std::optional<RestartingTicks::Ticks> m_last;
        RestartingTicks m_ticks;
    };

    std::uint32_t m_machine; // a send right, given back at the end
    Counter m_host;
    std::vector<Counter> m_processors;
};

} // namespace orrinvale
