// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace orrinvale
{

// The four counters of a processor as CPUCounters hands them out: they count from zero and begin again there before
// their sum reaches 2^30, so that no uptime overflows one, nor the sum of their differences when they fall.
class RestartingTicks
{
public:
    using Ticks = std::array<std::uint32_t, 4>; // user, system, idle, nice
    using Growth = std::array<std::uint64_t, 4>;

    void grow(const Growth& growth)
    {
        std::uint64_t sum = 0;
        for (std::size_t i = 0; i < growth.size(); ++i) {
            m_value[i] += static_cast<std::uint32_t>(std::min(growth[i], restartAt));
            sum += m_value[i];
        }
        if (sum >= restartAt)
            m_value = {};
    }
    const Ticks& value() const { return m_value; }

private:
    static constexpr std::uint64_t restartAt = 1u << 30;
    Ticks m_value{};
};

} // namespace orrinvale
