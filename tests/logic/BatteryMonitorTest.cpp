// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/BatteryMonitor.h"

#include "platform/fake/FakePowerSources.h"
#include "platform/fake/VirtualTime.h"

#include <gtest/gtest.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

struct BatteryMonitorTest : testing::Test {
    VirtualTime time;
    FakePowerSources sources;
    std::optional<BatteryMonitor> monitor{std::in_place, sources, time};
};

TEST_F(BatteryMonitorTest, BeforeStartTheValuesAreTrueAndAbsentAndNothingIsRead)
{
    EXPECT_TRUE(monitor->isPluggedIn.get());
    EXPECT_EQ(monitor->batteryPercentage.get(), std::nullopt);
    EXPECT_EQ(sources.reads, 0);
}

TEST_F(BatteryMonitorTest, WithoutBatteryItCountsAsPluggedIn)
{
    sources.setBattery(10);
    monitor->refresh();
    sources.source.reset();
    monitor->refresh();
    EXPECT_TRUE(monitor->isPluggedIn.get());
    EXPECT_EQ(monitor->batteryPercentage.get(), std::nullopt);
}

TEST_F(BatteryMonitorTest, WithoutStateItIsUnpluggedAndThePercentageStillStands)
{
    sources.source = PowerSource{std::nullopt, 57, 100};
    monitor->refresh();
    EXPECT_FALSE(monitor->isPluggedIn.get());
    EXPECT_EQ(monitor->batteryPercentage.get(), 57);
}

TEST_F(BatteryMonitorTest, OnlyTheExactTextMeansExternalPower)
{
    for (const auto* state : {"Battery Power", "ac power", "AC Power ", ""}) {
        sources.source = PowerSource{state, 57, 100};
        monitor->refresh();
        EXPECT_FALSE(monitor->isPluggedIn.get()) << state;
    }
    sources.source = PowerSource{"AC Power", 57, 100};
    monitor->refresh();
    EXPECT_TRUE(monitor->isPluggedIn.get());
}

struct Row {
    const char* name;
    std::optional<std::int64_t> current, maximum, percentage;
};

class Percentage : public testing::TestWithParam<Row>
{
};

TEST_P(Percentage, OfTheCapacities)
{
    VirtualTime time;
    FakePowerSources sources;
    BatteryMonitor monitor(sources, time);
    sources.source = PowerSource{"Battery Power", GetParam().current, GetParam().maximum};
    monitor.refresh();
    EXPECT_EQ(monitor.batteryPercentage.get(), GetParam().percentage);
    EXPECT_FALSE(monitor.isPluggedIn.get());
}

INSTANTIATE_TEST_SUITE_P(Capacities, Percentage,
                         testing::Values(Row{"Plain", 57, 100, 57}, Row{"Third", 1, 3, 33},
                                         Row{"HalfAwayFromZero", 1, 8, 13}, Row{"HalfOfOdd", 5, 8, 63},
                                         Row{"MaximumZero", 57, 0, std::nullopt},
                                         Row{"MaximumMissing", 57, std::nullopt, std::nullopt},
                                         Row{"CurrentMissing", std::nullopt, 100, std::nullopt},
                                         Row{"Hundredths", 1960, 10000, 20}),
                         [](const auto& row) { return row.param.name; });

TEST_F(BatteryMonitorTest, ReadsAtStartAndEveryFifteenSeconds)
{
    monitor->start();
    EXPECT_EQ(sources.reads, 1);
    time.advance(45s);
    EXPECT_EQ(sources.reads, 4);
}

TEST_F(BatteryMonitorTest, AnnouncesBothValuesOnEveryRefreshPluggedInFirst)
{
    std::string order;
    const auto a = monitor->isPluggedIn.observe([&](bool) { order += 'p'; }, Deliver::changesOnly);
    const auto b = monitor->batteryPercentage.observe([&](const auto&) { order += '%'; }, Deliver::changesOnly);
    monitor->refresh();
    monitor->refresh();
    EXPECT_EQ(order, "p%p%");
}

TEST_F(BatteryMonitorTest, StartingAgainReplacesThePolling)
{
    monitor->start();
    monitor->start();
    EXPECT_EQ(time.timerCount(), 1u);
}

TEST_F(BatteryMonitorTest, ReleasingTheMonitorStopsThePolling)
{
    monitor->start();
    monitor.reset();
    EXPECT_EQ(time.timerCount(), 0u);
}

} // namespace

} // namespace orrinvale
