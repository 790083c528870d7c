// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <vector>

namespace orrinvale::bench
{

using Microseconds = std::chrono::duration<double, std::micro>;
using Samples = std::vector<double>; // microseconds

// One line a measurement, for the driver: the name, a colon, every sample.
inline void report(std::string_view name, const Samples& samples)
{
    fmt::print("{}: {:.3f}\n", name, fmt::join(samples, " "));
    std::fflush(stdout);
}

template <typename Work>
double microsecondsOf(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return Microseconds(std::chrono::steady_clock::now() - begin).count();
}

// Calls `prepare`, unmeasured, before each measured `work`; the first tenth warms up and does not count.
template <typename Prepare, typename Work>
Samples measure(int rounds, Prepare prepare, Work work)
{
    Samples samples;
    for (int round = -rounds / 10; round < rounds; ++round) {
        prepare();
        const auto taken = microsecondsOf(work);
        if (round >= 0)
            samples.push_back(taken);
    }
    return samples;
}

// Processor time, of this thread (CLOCK_THREAD_CPUTIME_ID) or of the process (CLOCK_PROCESS_CPUTIME_ID).
inline double processorMicroseconds(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

} // namespace orrinvale::bench
