// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/CPUMonitor.h"

#include "orrinvale/ProcessTable.h"
#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

const std::string header = "  PID  %CPU COMMAND\n";

struct CPUMonitorTest : LogicFixture {
    void sample(std::uint32_t overall, std::int32_t core = 0)
    {
        fake.cpuCounters.addHostLoad(overall);
        fake.cpuCounters.addCoreLoad(0, core);
        time.advance(5s);
    }
    void startAndRun()
    {
        fake.cpuCounters.addCoreLoad(0, 0);
        monitor->start();
        time.runPending();
    }
    std::vector<std::string> details() const
    {
        std::vector<std::string> texts;
        for (const auto& signal : monitor->signals.get())
            texts.push_back(signal.detail);
        return texts;
    }

    std::optional<CPUMonitor> monitor{std::in_place, platform(), settings()};
};

TEST_F(CPUMonitorTest, TheFirstTickComparesAgainstThePrimingMeasurement)
{
    fake.cpuCounters.addHostLoad(100); // long before the start
    startAndRun();
    sample(0);
    sample(90);
    sample(90);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 90 %"));
}

TEST_F(CPUMonitorTest, ACoreWithASingleTickIsMeasuredAndOneWithNoneIsIdle)
{
    startAndRun();
    for (int tick = 0; tick < 2; ++tick) {
        ++(*fake.cpuCounters.cores)[0];
        fake.cpuCounters.addHostLoad(0);
        time.advance(5s);
    }
    EXPECT_THAT(details(), ElementsAre("High CPU load at 100 %"));
    fake.cpuCounters.addHostLoad(0);
    time.advance(5s);
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(CPUMonitorTest, OneBusySampleNeverPublishesAndTwoDoOnTheSecond)
{
    startAndRun();
    sample(45);
    EXPECT_THAT(details(), IsEmpty());
    sample(10);
    sample(45);
    EXPECT_THAT(details(), IsEmpty());
    sample(45);
    EXPECT_THAT(details(), ElementsAre("Elevated CPU usage at 45 %"));
    const auto& signal = monitor->signals.get()[0];
    EXPECT_EQ(signal.score, 2);
    EXPECT_EQ(signal.source, SignalSource::cpu);
    EXPECT_EQ(signal.timestamp, time.now());
    EXPECT_FALSE(signal.appName);
    EXPECT_FALSE(signal.appBundleID);
}

TEST_F(CPUMonitorTest, LoadOfExactlyTheThresholdsIsBusyAndHigh)
{
    settings().cpuSensitivity.set(0.5);
    startAndRun();
    sample(40);
    sample(40);
    EXPECT_THAT(details(), ElementsAre("Elevated CPU usage at 40 %"));
    sample(39);
    EXPECT_THAT(details(), IsEmpty());
    sample(70);
    sample(70);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 70 %"));
    EXPECT_EQ(monitor->signals.get()[0].score, 4);
}

TEST_F(CPUMonitorTest, OneSaturatedCoreIsHighLoadOfAnIdleMachine)
{
    startAndRun();
    sample(30, 95);
    sample(30, 95);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 95 %"));
    EXPECT_EQ(monitor->signals.get()[0].score, 4);
}

TEST_F(CPUMonitorTest, HalvesAreRoundedAwayFromZero)
{
    startAndRun();
    for (int i = 0; i < 2; ++i) {
        fake.cpuCounters.answer.ticks.user += 139;
        fake.cpuCounters.answer.ticks.idle += 61; // 69.5 %
        time.advance(5s);
    }
    EXPECT_THAT(details(), ElementsAre("High CPU load at 70 %"));
}

TEST_F(CPUMonitorTest, SystemAndNiceCountAsBusy)
{
    startAndRun();
    for (int i = 0; i < 2; ++i) {
        fake.cpuCounters.answer.ticks.system += 20;
        fake.cpuCounters.answer.ticks.nice += 25;
        fake.cpuCounters.answer.ticks.idle += 55;
        time.advance(5s);
    }
    EXPECT_THAT(details(), ElementsAre("Elevated CPU usage at 45 %"));
}

TEST_F(CPUMonitorTest, OneTickOfACoreIsEnoughToTellItsLoadAndNoneIsNot)
{
    startAndRun();
    for (int i = 0; i < 2; ++i) {
        fake.cpuCounters.addHostLoad(0);
        time.advance(5s); // the core stands still
    }
    EXPECT_THAT(details(), IsEmpty());
    for (int i = 0; i < 2; ++i) {
        fake.cpuCounters.addHostLoad(0);
        ++fake.cpuCounters.cores->at(0);
        time.advance(5s);
    }
    EXPECT_THAT(details(), ElementsAre("High CPU load at 100 %"));
}

TEST_F(CPUMonitorTest, TheCauseIsNamedWithItsApplication)
{
    fake.processStatus.text = header + " 4242 187.0 /opt/My Tools/ffmpeg\n";
    fake.runningApplications.list.push_back({"org.example.Encoder", "Encoder", "/usr/lib/encoder/ffmpeg"});
    startAndRun();
    sample(87);
    sample(87);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 87 % (ffmpeg)"));
    EXPECT_EQ(monitor->signals.get()[0].appBundleID, "org.example.Encoder");
    EXPECT_EQ(monitor->signals.get()[0].appName, "Encoder");
}

TEST_F(CPUMonitorTest, ACauseThatIsNoApplicationGoesByItsName)
{
    fake.processStatus.text = header + "4242 99.0 cc1plus\n";
    fake.runningApplications.run("org.example.NoPath", "cc1plus");
    startAndRun();
    sample(87);
    sample(87);
    EXPECT_FALSE(monitor->signals.get().at(0).appBundleID);
    EXPECT_EQ(monitor->signals.get()[0].appName, "cc1plus");
}

TEST_F(CPUMonitorTest, OnlyBusySamplesAskForTheProcesses)
{
    startAndRun();
    sample(5);
    EXPECT_EQ(fake.processStatus.prepared, 0);
    sample(60);
    EXPECT_EQ(fake.processStatus.prepared, 1);
    EXPECT_EQ(fake.processStatus.reads, 0);
    sample(60);
    EXPECT_EQ(fake.processStatus.prepared, 2);
    EXPECT_EQ(fake.processStatus.reads, 1);
    sample(5);
    EXPECT_EQ(fake.processStatus.prepared, 2);
    EXPECT_EQ(fake.processStatus.reads, 1);
}

TEST_F(CPUMonitorTest, EqualDetailsKeepTheEarlierSignal)
{
    startAndRun();
    sample(60);
    sample(60);
    const auto first = monitor->signals.get().at(0);
    sample(60);
    EXPECT_EQ(monitor->signals.get().at(0).id, first.id);
    EXPECT_EQ(monitor->signals.get().at(0).timestamp, first.timestamp);
    sample(61);
    EXPECT_NE(monitor->signals.get().at(0).id, first.id);
}

TEST_F(CPUMonitorTest, AnotherTopProcessReplacesTheSignal)
{
    startAndRun();
    fake.processStatus.text = header + "4242 99.0 a\n";
    sample(60);
    sample(60);
    const auto id = monitor->signals.get().at(0).id;
    fake.processStatus.text = header + "4242 99.0 b\n";
    sample(60);
    EXPECT_NE(monitor->signals.get().at(0).id, id);
}

TEST_F(CPUMonitorTest, TheCauseOfAnEarlierLoadIsForgotten)
{
    fake.processStatus.text = header + "4242 99.0 yesterday\n";
    startAndRun();
    sample(60);
    sample(60);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 60 % (yesterday)"));
    sample(5);
    fake.processStatus.isFast = false;
    sample(60);
    sample(60);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 60 %"));
    fake.processStatus.isFast = true;
    fake.processStatus.text = header + "4242 99.0 today\n";
    sample(60);
    sample(60);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 60 % (today)"));
}

TEST_F(CPUMonitorTest, SensitivityIsFollowedFromTheSettings)
{
    startAndRun();
    settings().cpuSensitivity.set(1);
    time.runPending();
    sample(15);
    sample(15);
    EXPECT_THAT(details(), ElementsAre("Elevated CPU usage at 15 %"));
}

TEST_F(CPUMonitorTest, SwitchedOffItClearsMeasuresNothingAndCountsAnew)
{
    startAndRun();
    sample(45);
    sample(45);
    settings().cpuSignalEnabled.set(false);
    const auto reads = fake.cpuCounters.hostReads;
    sample(45);
    EXPECT_THAT(details(), IsEmpty());
    EXPECT_EQ(fake.cpuCounters.hostReads, reads);
    settings().cpuSignalEnabled.set(true);
    sample(45);
    EXPECT_THAT(details(), IsEmpty());
    sample(45);
    EXPECT_THAT(details(), ElementsAre("Elevated CPU usage at 45 %"));
}

TEST_F(CPUMonitorTest, AHostFailureIsALineALoadOfZeroAndKeepsTheSnapshot)
{
    startAndRun();
    sample(45);
    fake.cpuCounters.answer.status = 5;
    testing::internal::CaptureStdout();
    time.advance(5s);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "⚠️ CPUMonitor: host_statistics failed (5)\n");
    fake.cpuCounters.answer.status = 0;
    sample(45);
    EXPECT_THAT(details(), IsEmpty());
    sample(45);
    EXPECT_THAT(details(), ElementsAre("Elevated CPU usage at 45 %"));
}

TEST_F(CPUMonitorTest, WithoutCoresThePeakIsTheWholeMachine)
{
    monitor->start();
    fake.cpuCounters.addHostLoad(50);
    time.advance(5s);
    fake.cpuCounters.addHostLoad(50);
    time.advance(5s);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 50 %"));
}

TEST_F(CPUMonitorTest, RestartedCountersGiveNoLoad)
{
    startAndRun();
    sample(60, 60);
    fake.cpuCounters.answer.ticks = {0, 0, 0, 0};
    fake.cpuCounters.cores->assign(4, 0);
    time.advance(5s);
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(CPUMonitorTest, AMachineThatGainsCoresIsMeasuredOverTheKnownOnes)
{
    startAndRun();
    fake.cpuCounters.addCoreLoad(7, 100);
    sample(10, 95);
    fake.cpuCounters.addCoreLoad(7, 100);
    sample(10, 5);
    EXPECT_THAT(details(), ElementsAre("High CPU load at 100 %"));
}

TEST_F(CPUMonitorTest, StopEmptiesAndForgetsTheSnapshots)
{
    startAndRun();
    sample(60);
    sample(60);
    monitor->stop();
    EXPECT_TRUE(monitor->signals.get().empty());
    EXPECT_EQ(time.timerCount(), 0u);
    monitor->start();
    sample(60);
    EXPECT_THAT(details(), IsEmpty());
}

using CPUMonitorDeathTest = CPUMonitorTest;

TEST_F(CPUMonitorDeathTest, OverflowingCoreTicksAreFatal)
{
    startAndRun();
    (*fake.cpuCounters.cores)[0] = INT32_MAX;
    (*fake.cpuCounters.cores)[1] = INT32_MAX;
    EXPECT_DEATH(time.advance(5s), "processor ticks overflow 32 bits");
}

struct ThresholdRow {
    double sensitivity, busy, high, singleCore;
};

class Thresholds : public testing::WithParamInterface<ThresholdRow>, public LogicFixture
{
};

TEST_P(Thresholds, ArePiecewiseLinear)
{
    settings().cpuSensitivity.set(GetParam().sensitivity);
    EXPECT_EQ(settings().cpuBusyThreshold(), GetParam().busy);
    EXPECT_EQ(settings().cpuHighThreshold(), GetParam().high);
    EXPECT_EQ(settings().cpuSingleCoreThreshold(), GetParam().singleCore);
}

INSTANTIATE_TEST_SUITE_P(Table, Thresholds,
                         testing::Values(ThresholdRow{-3, 70, 95, 85}, ThresholdRow{0, 70, 95, 85},
                                         ThresholdRow{0.25, 55, 82.5, 67.5}, ThresholdRow{0.5, 40, 70, 50},
                                         ThresholdRow{0.75, 27.5, 55, 37.5}, ThresholdRow{1, 15, 40, 25},
                                         ThresholdRow{1.7, 15, 40, 25}));

struct TableRow {
    const char* name;
    std::string table;
    std::optional<std::string> process;
};

class TopProcess : public testing::TestWithParam<TableRow>
{
};

TEST_P(TopProcess, OfTheTable)
{
    EXPECT_EQ(topProcessName(GetParam().table), GetParam().process);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, TopProcess,
    testing::Values(TableRow{"Empty", "", std::nullopt}, TableRow{"HeaderOnly", header, std::nullopt},
                    TableRow{"NoLineFeed", "4242 99.0 a", std::nullopt},
                    TableRow{"First", header + "4242 99.0 a\n4243 98.0 b\n", "a"},
                    TableRow{"LastLineWithoutLineFeed", header + "4242 99.0 a", "a"},
                    TableRow{"Tabs", header + "\t4242\t99.0\ta\t\n", "a"},
                    TableRow{"TwoPieces", header + "4242 99.0\n", std::nullopt},
                    TableRow{"PathWithBlanks", header + "4242 99.0 /opt/My  Tools/my tool\n", "my tool"},
                    TableRow{"InitAndKernel", header + "0 99.0 a\n1 99.0 b\n2 99.0 c\n", "c"},
                    TableRow{"NegativeId", header + "-7 99.0 a\n", std::nullopt},
                    TableRow{"PlusIsAllowed", header + "+42 +9.5 a\n", "a"},
                    TableRow{"PlusMinusIsNot", header + "+-42 9.5 a\n", std::nullopt},
                    TableRow{"IdNotWhole", header + "42x 9.5 a\n", std::nullopt},
                    TableRow{"IdTooLarge", header + "2147483648 9.5 a\n", std::nullopt},
                    TableRow{"ShareOfOneIsIdle", header + "42 1.0 a\n", std::nullopt},
                    TableRow{"ShareAboveOne", header + "42 1.1 a\n", "a"},
                    TableRow{"DecimalComma", header + "42 9,5 a\n", std::nullopt},
                    TableRow{"Infinite", header + "42 inf a\n", std::nullopt},
                    TableRow{"NotANumber", header + "42 nan a\n", std::nullopt},
                    TableRow{"IgnoredIsSkipped", header + "42 99.0 /sbin/launchd\n43 9.0 a\n", "a"},
                    TableRow{"IgnoringIsCaseSensitive", header + "42 99.0 Launchd\n", "Launchd"}),
    [](const auto& row) { return row.param.name; });

TEST(IgnoredProcesses, AreThirtyThreeAndNoneIsEverNamed)
{
    const std::vector<std::string> names{"kernel_task",
                                         "launchd",
                                         "ps",
                                         "WindowServer",
                                         "mdworker",
                                         "mdworker_shared",
                                         "mds",
                                         "mds_stores",
                                         "mdsync",
                                         "mdbulkimport",
                                         "backupd",
                                         "backupd-helper",
                                         "bird",
                                         "cloudd",
                                         "cloudphotod",
                                         "com.apple.CloudDocs.MobileDocumentsFileProvider",
                                         "photoanalysisd",
                                         "photolibraryd",
                                         "coreduetd",
                                         "corespotlightd",
                                         "trustd",
                                         "syspolicyd",
                                         "softwareupdated",
                                         "iconservicesagent",
                                         "cloudpaird",
                                         "logd",
                                         "UserEventAgent",
                                         "powerd",
                                         "appleh13camerad",
                                         "endpointsecurityd",
                                         "diagnosticd",
                                         "corespeechd",
                                         "suggestd"};
    EXPECT_EQ(names.size(), 33u);
    EXPECT_EQ(ignoredProcessNames.size(), 33u);
    for (const auto& name : names)
        EXPECT_EQ(topProcessName(header + "42 99.0 " + name + "\n"), std::nullopt) << name;
}

} // namespace

} // namespace orrinvale
