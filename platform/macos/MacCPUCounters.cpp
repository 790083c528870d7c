// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacCPUCounters.h"

#include <algorithm>
#include <utility>

#include <mach/mach.h>

namespace orrinvale
{

namespace
{

constexpr std::uint32_t mostGrowth = 1u << 30; // between two readings; more is a counter that fell

// What the kernel mapped into this process, given back at the end.
class ProcessorLoads
{
public:
    explicit ProcessorLoads(mach_port_t machine)
    {
        // A call that fails leaves the address as it was, or worse.
        if (host_processor_info(machine, PROCESSOR_CPU_LOAD_INFO, &m_count, &m_words, &m_wordCount) != KERN_SUCCESS)
            m_words = nullptr;
    }
    ~ProcessorLoads()
    {
        if (m_words)
            vm_deallocate(mach_task_self(), reinterpret_cast<vm_address_t>(m_words), m_wordCount * sizeof *m_words);
    }
    ProcessorLoads(const ProcessorLoads&) = delete;
    ProcessorLoads& operator=(const ProcessorLoads&) = delete;

    explicit operator bool() const { return m_words != nullptr; }
    std::size_t size() const { return std::min<std::size_t>(m_count, m_wordCount / CPU_STATE_MAX); }
    RestartingTicks::Ticks at(std::size_t processor) const
    {
        const auto tick = [&](std::size_t state) {
            return static_cast<std::uint32_t>(m_words[processor * CPU_STATE_MAX + state]);
        };
        return {tick(CPU_STATE_USER), tick(CPU_STATE_SYSTEM), tick(CPU_STATE_IDLE), tick(CPU_STATE_NICE)};
    }

private:
    natural_t m_count = 0;
    processor_info_array_t m_words = nullptr;
    mach_msg_type_number_t m_wordCount = 0;
};

} // namespace

void MacCPUCounters::Counter::update(const RestartingTicks::Ticks& reading)
{
    const auto last = std::exchange(m_last, reading).value_or(reading);
    RestartingTicks::Growth growth{};
    for (std::size_t i = 0; i < reading.size(); ++i) {
        const std::uint32_t grown = reading[i] - last[i]; // in 32 bits, where a wrap does not matter
        growth[i] = grown < mostGrowth ? grown : 0;
    }
    m_ticks.grow(growth);
}

MacCPUCounters::MacCPUCounters() : m_machine(mach_host_self())
{
    host();
    processors();
}

MacCPUCounters::~MacCPUCounters()
{
    mach_port_deallocate(mach_task_self(), m_machine);
}

CPUCounters::Host MacCPUCounters::host()
{
    host_cpu_load_info load{};
    mach_msg_type_number_t words = HOST_CPU_LOAD_INFO_COUNT;
    const auto status = host_statistics(m_machine, HOST_CPU_LOAD_INFO, reinterpret_cast<host_info_t>(&load), &words);
    if (status != KERN_SUCCESS)
        return {status, {}};
    m_host.update({load.cpu_ticks[CPU_STATE_USER], load.cpu_ticks[CPU_STATE_SYSTEM], load.cpu_ticks[CPU_STATE_IDLE],
                   load.cpu_ticks[CPU_STATE_NICE]});
    const auto& [user, system, idle, nice] = m_host.value();
    return {status, {user, system, idle, nice}};
}

std::optional<std::vector<std::int32_t>> MacCPUCounters::processors()
{
    const ProcessorLoads loads(m_machine);
    if (!loads)
        return std::nullopt;
    m_processors.resize(std::max(m_processors.size(), loads.size()));
    std::vector<std::int32_t> ticks;
    for (std::size_t i = 0; i < m_processors.size(); ++i) {
        if (i < loads.size())
            m_processors[i].update(loads.at(i));
        for (const auto each : m_processors[i].value())
            ticks.push_back(static_cast<std::int32_t>(each));
    }
    return ticks;
}

} // namespace orrinvale
