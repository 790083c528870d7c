// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxCPUCounters.h"

#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>

#include <unistd.h>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

struct CPUCountersTest : testing::Test {
    void write(const std::string& text) { std::ofstream(file, std::ios::trunc) << text; }
    using Cores = std::vector<std::int32_t>;

    TemporaryFolder temporary;
    std::filesystem::path file = temporary.path / "stat";
};

TEST_F(CPUCountersTest, CountsFromItsMaking)
{
    write("cpu  100 10 50 1000 20 3 4 99 0 0\ncpu0 100 10 50 1000 20 3 4 99 0 0\nintr 1\n");
    LinuxCPUCounters counters(file);
    EXPECT_EQ(counters.processors(), (Cores{0, 0, 0, 0}));
    write("cpu  110 12 51 1100 25 4 6 199 0 0\ncpu0 110 12 51 1100 25 4 6 199 0 0\nintr 1\n");
    const auto host = counters.host();
    EXPECT_EQ(host.status, 0);
    EXPECT_EQ(host.ticks.user, 10u);
    EXPECT_EQ(host.ticks.system, 1u + 1 + 2); // with irq and softirq
    EXPECT_EQ(host.ticks.idle, 100u + 5);     // with iowait; steal is neither
    EXPECT_EQ(host.ticks.nice, 2u);
    EXPECT_EQ(counters.processors(), (Cores{10, 4, 105, 2}));
}

TEST_F(CPUCountersTest, ACounterThatFallsKeepsItsHighestValue)
{
    write("cpu  100 0 0 1000 500 0 0 0\n");
    LinuxCPUCounters counters(file);
    write("cpu  100 0 0 1000 400 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 0u);
    write("cpu  100 0 0 1000 510 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 10u);
}

TEST_F(CPUCountersTest, AProcessorWhoseCountersRestartBeginsAnew)
{
    const auto stat = [&](int idle0, int idle1) {
        write(fmt::format("cpu  100 0 0 {} 0 0 0\ncpu0 50 0 0 {} 0 0 0\ncpu1 50 0 0 {} 0 0 0\n", idle0 + idle1, idle0,
                          idle1));
    };
    stat(500'000, 500'000);
    LinuxCPUCounters counters(file);
    stat(500'500, 500'500);
    EXPECT_EQ(counters.host().ticks.idle, 1000u);
    stat(501'000, 100); // the second was offline for a moment
    EXPECT_EQ(counters.host().ticks.idle, 0u);
    EXPECT_EQ(counters.processors(), (Cores{0, 0, 1000, 0, 0, 0, 0, 0}));
    stat(501'500, 600);
    EXPECT_EQ(counters.host().ticks.idle, 1000u);
    EXPECT_EQ(counters.processors(), (Cores{0, 0, 1500, 0, 0, 0, 500, 0}));
}

TEST_F(CPUCountersTest, OneTickTellsASmallFallFromARestart)
{
    write("cpu  0 0 0 1000 0 0 0\n");
    LinuxCPUCounters counters(file);
    write("cpu  0 0 0 1100 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 100u);
    write("cpu  0 0 0 900 0 0 0\n"); // by 200
    EXPECT_EQ(counters.host().ticks.idle, 100u);
    write("cpu  0 0 0 1150 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 150u);
    write("cpu  0 0 0 949 0 0 0\n"); // by 201
    EXPECT_EQ(counters.host().ticks.idle, 0u);
    write("cpu  0 0 0 1000 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 51u);
}

TEST_F(CPUCountersTest, AnOfflineProcessorKeepsItsValuesAndItsSlot)
{
    write("cpu  0 0 0 0 0 0 0\ncpu0 0 0 0 0 0 0 0\ncpu1 0 0 0 0 0 0 0\ncpu2 0 0 0 0 0 0 0\n");
    LinuxCPUCounters counters(file);
    write("cpu  0 0 0 0 0 0 0\ncpu0 1 0 0 0 0 0 0\ncpu1 2 0 0 0 0 0 0\ncpu2 3 0 0 0 0 0 0\n");
    counters.host();
    write("cpu  0 0 0 0 0 0 0\ncpu0 5 0 0 0 0 0 0\ncpu2 6 0 0 0 0 0 0\n");
    counters.host();
    EXPECT_EQ(counters.processors(), (Cores{5, 0, 0, 0, 2, 0, 0, 0, 6, 0, 0, 0}));
}

TEST_F(CPUCountersTest, BeginsAgainAtZeroBeforeTheSumFillsThirtyBits)
{
    write("cpu  0 0 0 0 0 0 0\ncpu0 0 0 0 0 0 0 0\n");
    LinuxCPUCounters counters(file);
    write("cpu  3 1 2 1073741817 0 0 0\ncpu0 3 1 2 1073741817 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 1073741817u);
    EXPECT_EQ(counters.processors(), (Cores{3, 2, 1073741817, 1}));
    write("cpu  3 1 2 1073741818 0 0 0\ncpu0 3 1 2 1073741818 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 0u);
    EXPECT_EQ(counters.processors(), (Cores{0, 0, 0, 0}));
}

TEST_F(CPUCountersTest, NoStepOfTheSumExceedsThirtyBitsHoweverTheTimeIsSpread)
{
    struct Spread {
        std::int64_t user, nice, system, idle; // percent
    };
    for (const auto& [user, nice, system, idle] : {Spread{45, 0, 10, 45}, Spread{25, 25, 25, 25}, Spread{0, 0, 0, 100},
                                                   Spread{50, 0, 0, 50}, Spread{0, 33, 33, 34}}) {
        write("cpu  0 0 0 0 0 0 0\ncpu0 0 0 0 0 0 0 0\n");
        LinuxCPUCounters counters(file);
        std::int64_t before = 0;
        int restarts = 0;
        for (std::int64_t percent = 0; percent < 60'000'000; percent += 2'000'000) {
            const auto times =
                fmt::format(" {} {} {} {} 0 0 0\n", user * percent, nice * percent, system * percent, idle * percent);
            write("cpu " + times + "cpu0" + times);
            counters.host();
            const auto cores = counters.processors().value();
            const auto now = std::accumulate(cores.begin(), cores.end(), std::int64_t{0});
            EXPECT_LT(std::abs(now - before), 1 << 30) << times;
            restarts += now < before ? 1 : 0;
            before = now;
        }
        EXPECT_EQ(restarts, 4); // 29 steps of 2 * 10^8, each time after six
    }
}

TEST_F(CPUCountersTest, ALeapBeyondSixtyFourBitsInSumBeginsAgainToo)
{
    write("cpu  0 0 0 0 0 0 0\ncpu0 0 0 0 0 0 0 0\n");
    LinuxCPUCounters counters(file);
    write("cpu  9223372036854775809 0 0 9223372036854775809 0 0 0\n"
          "cpu0 9223372036854775809 0 0 9223372036854775809 0 0 0\n");
    EXPECT_EQ(counters.host().ticks.idle, 0u);
    EXPECT_EQ(counters.processors(), (Cores{0, 0, 0, 0}));
}

TEST_F(CPUCountersTest, AMissingOrMeaninglessFileIsAnError)
{
    EXPECT_NE(LinuxCPUCounters("/nonexistent/stat").host().status, 0);
    write("nonsense\n");
    LinuxCPUCounters counters(file);
    EXPECT_NE(counters.host().status, 0);
    EXPECT_EQ(counters.processors(), std::nullopt);
}

TEST_F(CPUCountersTest, ReadsTheMachineItself)
{
    LinuxCPUCounters counters;
    const auto begin = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(100)) {
    }
    const auto host = counters.host();
    EXPECT_EQ(host.status, 0);
    EXPECT_GE(host.ticks.user + host.ticks.system + host.ticks.nice, 5u); // 100 ms are ten ticks of 10 ms
    EXPECT_EQ(counters.processors()->size() % 4, 0u);
}

TEST_F(CPUCountersTest, AFileOf256ProcessorsIsReadWell)
{
    std::string text = "cpu  1000000 1000000 1000000 1000000 1000000 1000000 1000000 0 0 0\n";
    for (int i = 0; i < 256; ++i)
        text += "cpu" + std::to_string(i) + " 100000 100000 100000 100000 100000 100000 100000 0 0 0\n";
    write(text + "intr 1 2 3\n");
    LinuxCPUCounters counters(file);
    const auto begin = std::chrono::steady_clock::now();
    counters.host();
    EXPECT_EQ(counters.processors()->size(), 256u * 4);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(5));
}

} // namespace

} // namespace orrinvale
