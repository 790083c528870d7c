// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/NetworkActivityMonitor.h"

#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

struct NetworkActivityMonitorTest : LogicFixture {
    NetworkActivityMonitorTest()
    {
        fake.networkCounters.bytes = NetworkCounters::Bytes{1'000'000'000, 5'000'000};
        monitor->start();
    }
    void tick(std::uint64_t received, std::uint64_t sent = 0)
    {
        fake.networkCounters.bytes->received += received;
        fake.networkCounters.bytes->sent += sent;
        time.advance(3s);
    }
    std::vector<std::string> details() const
    {
        std::vector<std::string> texts;
        for (const auto& signal : monitor->signals.get())
            texts.push_back(signal.detail);
        return texts;
    }

    std::optional<NetworkActivityMonitor> monitor{std::in_place, platform(), settings()};
};

TEST_F(NetworkActivityMonitorTest, ARateOfExactlyTheThresholdIsNotActive)
{
    tick(1'500'000);
    EXPECT_THAT(details(), IsEmpty());
    tick(1'500'003); // 500,001 bytes a second
    EXPECT_THAT(details(), ElementsAre("Receiving data at 0.5 MB/s"));
}

TEST_F(NetworkActivityMonitorTest, BothDirectionsGiveTwoSignalsReceivingFirst)
{
    tick(3'000'000, 6'000'000);
    EXPECT_THAT(details(), ElementsAre("Receiving data at 1.0 MB/s", "Sending data at 2.0 MB/s"));
    for (const auto& signal : monitor->signals.get()) {
        EXPECT_EQ(signal.source, SignalSource::network);
        EXPECT_EQ(signal.score, 3);
        EXPECT_EQ(signal.timestamp, time.now());
        EXPECT_FALSE(signal.appBundleID);
        EXPECT_FALSE(signal.appName);
    }
}

TEST_F(NetworkActivityMonitorTest, SmallTrafficGivesNoSignal)
{
    tick(1'234'567);
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(NetworkActivityMonitorTest, RoundsTheBinaryValue)
{
    tick(3'750'000); // 1.25 MB/s
    EXPECT_THAT(details(), ElementsAre("Receiving data at 1.2 MB/s"));
}

TEST_F(NetworkActivityMonitorTest, SteadyDetailsKeepTheirIdentifiers)
{
    tick(3'000'000);
    const auto id = monitor->signals.get().at(0).id;
    tick(3'010'000);
    EXPECT_EQ(monitor->signals.get().at(0).id, id);
    tick(3'400'000);
    EXPECT_NE(monitor->signals.get().at(0).id, id);
}

TEST_F(NetworkActivityMonitorTest, FallingCountersGiveARateOfZero)
{
    tick(3'000'000, 3'000'000);
    fake.networkCounters.bytes->received = 0;
    tick(0, 3'000'000);
    EXPECT_THAT(details(), ElementsAre("Sending data at 1.0 MB/s"));
}

TEST_F(NetworkActivityMonitorTest, TheFirstTickMeasuresAgainstTheBaselineOfTheStart)
{
    tick(3'000'000);
    EXPECT_THAT(details(), ElementsAre("Receiving data at 1.0 MB/s"));
}

TEST_F(NetworkActivityMonitorTest, TheListIsEmptiedOnTheFirstQuietTickAndTheFlagLater)
{
    tick(3'000'000);
    tick(0);
    EXPECT_THAT(details(), IsEmpty());
    EXPECT_TRUE(monitor->wasActive());
    tick(0);
    EXPECT_TRUE(monitor->wasActive());
    tick(0); // nine seconds after the last activity
    EXPECT_FALSE(monitor->wasActive());
}

TEST_F(NetworkActivityMonitorTest, AFailedReadingChangesNothing)
{
    tick(3'000'000);
    fake.networkCounters.bytes.reset();
    time.advance(30s);
    EXPECT_THAT(details(), ElementsAre("Receiving data at 1.0 MB/s"));
}

TEST_F(NetworkActivityMonitorTest, SwitchedOffItEmptiesTheListAndKeepsTheBaseline)
{
    tick(3'000'000);
    settings().networkSignalEnabled.set(false);
    tick(600'000'000);
    EXPECT_THAT(details(), IsEmpty());
    EXPECT_FALSE(monitor->wasActive());
    time.advance(291s);
    settings().networkSignalEnabled.set(true);
    tick(0); // 600 MB over 297 s
    EXPECT_THAT(details(), ElementsAre("Receiving data at 2.0 MB/s"));
}

TEST_F(NetworkActivityMonitorTest, AWallClockSetBackChangesNothingUntilItHasCaughtUp)
{
    tick(3'000'000);
    time.setWallClock(time.now() - 10s);
    tick(30'000'000);
    EXPECT_THAT(details(), ElementsAre("Receiving data at 1.0 MB/s"));
}

TEST_F(NetworkActivityMonitorTest, TheRateAfterASuspendIsTheAverageOverIt)
{
    time.sleepMachineFor(597s);
    tick(6'000'000); // over 600 s
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(NetworkActivityMonitorTest, StopEmptiesAndEndsTheTimer)
{
    tick(3'000'000);
    monitor->stop();
    EXPECT_TRUE(monitor->signals.get().empty());
    EXPECT_FALSE(monitor->wasActive());
    EXPECT_EQ(time.timerCount(), 0u);
}

} // namespace

} // namespace orrinvale
