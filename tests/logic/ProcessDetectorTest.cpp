// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ProcessDetector.h"

#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

struct ProcessDetectorTest : LogicFixture {
    void start()
    {
        detector->start();
        time.runPending();
    }
    std::vector<std::string> details() const
    {
        std::vector<std::string> texts;
        for (const auto& signal : detector->signals.get())
            texts.push_back(signal.detail);
        return texts;
    }

    std::optional<ProcessDetector> detector{std::in_place, platform()};
};

struct Row {
    std::string bundleID;
    std::string label;
    std::int64_t score;
    bool requiresMedia;
};

const std::vector<Row> table{
    {"us.zoom.xos", "Zoom call in progress", 5, true},
    {"com.microsoft.teams2", "Teams call in progress", 5, true},
    {"com.microsoft.teams", "Teams call in progress", 5, true},
    {"com.apple.FaceTime", "FaceTime call in progress", 5, true},
    {"com.loom.desktop", "Loom recording", 5, true},
    {"com.adobe.Premiere Pro", "Premiere Pro rendering", 4, false},
    {"com.adobe.AfterEffects", "After Effects rendering", 4, false},
    {"com.apple.FinalCut", "Final Cut Pro exporting", 4, false},
    {"com.blackmagic-design.DaVinci-Resolve", "DaVinci Resolve active", 4, false},
    {"com.apple.compressor", "Compressor encoding", 5, false},
    {"com.handbrake.HandBrake", "HandBrake encoding", 5, false},
    {"org.ffmpeg.FFmpegKit", "FFmpeg transcoding", 4, false},
    {"com.jetbrains.intellij", "IntelliJ running build", 3, false},
    {"com.jetbrains.CLion", "CLion running build", 3, false},
    {"com.jetbrains.AppCode", "AppCode running build", 3, false},
    {"com.dropbox.client2", "Dropbox syncing", 3, false},
    {"com.apple.CloudDocs.iCloudDriveFileProvider", "iCloud syncing", 2, false},
    {"com.backblaze.backup.launcher", "Backblaze backup running", 4, false},
    {"com.carboncopycloner.4", "Carbon Copy Cloner cloning", 5, false},
    {"com.bombich.ccc", "Carbon Copy Cloner cloning", 5, false},
    {"net.freemacsoft.TimeMachineStatus", "Time Machine backup", 4, false},
    {"org.m0k.transmission", "Transmission active", 4, false},
    {"com.bittorrent.uTorrent", "uTorrent active", 4, false},
    {"org.qbittorrent.qbittorrent", "qBittorrent active", 4, false},
    {"com.apple.Terminal", "Terminal session active", 1, false},
    {"com.googlecode.iterm2", "iTerm2 session active", 1, false},
    {"com.github.wez.wezterm", "WezTerm session active", 1, false},
};

TEST_F(ProcessDetectorTest, TheTableHasItsTwentySevenRowsInOrder)
{
    const auto& built = ProcessDetector::builtinProcesses();
    ASSERT_EQ(built.size(), table.size());
    ASSERT_EQ(built.size(), 27u);
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(built[i].bundleID, table[i].bundleID);
        EXPECT_EQ(built[i].label, table[i].label);
        EXPECT_EQ(built[i].score, table[i].score);
        EXPECT_EQ(built[i].requiresMediaActivity, table[i].requiresMedia);
    }
}

class WatchedRow : public testing::WithParamInterface<Row>, public ProcessDetectorTest
{
};

TEST_P(WatchedRow, GivesItsSignal)
{
    fake.runningApplications.run(GetParam().bundleID, "Its Name");
    start();
    EXPECT_EQ(detector->signals.get().size(), GetParam().requiresMedia ? 0u : 1u);
    fake.mediaDevices.camera = true;
    time.advance(10s);
    ASSERT_EQ(detector->signals.get().size(), 1u);
    const auto& signal = detector->signals.get()[0];
    EXPECT_EQ(signal.source, SignalSource::process);
    EXPECT_EQ(signal.detail, GetParam().label);
    EXPECT_EQ(signal.score, GetParam().score);
    EXPECT_EQ(signal.appBundleID, GetParam().bundleID);
    EXPECT_EQ(signal.appName, "Its Name");
    EXPECT_EQ(signal.timestamp, time.now());
}

INSTANTIATE_TEST_SUITE_P(Table, WatchedRow, testing::ValuesIn(table));

TEST_F(ProcessDetectorTest, ACallNeedsTheCameraOrTheMicrophone)
{
    fake.runningApplications.run("us.zoom.xos", "Zoom");
    start();
    EXPECT_THAT(details(), IsEmpty());
    fake.mediaDevices.microphone = true;
    time.advance(10s);
    EXPECT_THAT(details(), ElementsAre("Zoom call in progress"));
}

TEST_F(ProcessDetectorTest, TheMicrophoneIsAskedOnlyWhenNoCameraIsInUse)
{
    fake.runningApplications.run("us.zoom.xos", "Zoom");
    fake.runningApplications.run("com.microsoft.teams", "Teams");
    fake.mediaDevices.camera = true;
    start();
    EXPECT_EQ(fake.mediaDevices.cameraQuestions, 1); // once an evaluation
    EXPECT_EQ(fake.mediaDevices.microphoneQuestions, 0);
    fake.mediaDevices.camera = false;
    time.advance(10s);
    EXPECT_EQ(fake.mediaDevices.microphoneQuestions, 1);
}

TEST_F(ProcessDetectorTest, TheDevicesAreNotAskedWhenNoConferencingApplicationRuns)
{
    fake.runningApplications.run("com.handbrake.HandBrake", "HandBrake");
    detector->updateCustomProcesses({{UUID::random(), "us.zoom.xos", "x", 3}});
    start();
    time.advance(60s);
    EXPECT_EQ(fake.mediaDevices.cameraQuestions, 0);
    EXPECT_EQ(fake.mediaDevices.microphoneQuestions, 0);
}

TEST_F(ProcessDetectorTest, BothTeamsIdentifiersGiveTwoSignals)
{
    fake.runningApplications.run("com.microsoft.teams", "Teams");
    fake.runningApplications.run("com.microsoft.teams2", "Teams");
    fake.mediaDevices.camera = true;
    start();
    EXPECT_THAT(details(), ElementsAre("Teams call in progress", "Teams call in progress"));
    EXPECT_EQ(detector->signals.get()[0].appBundleID, "com.microsoft.teams2"); // the table's order
}

TEST_F(ProcessDetectorTest, ACustomEntryOfABuiltInApplicationGivesASecondSignal)
{
    fake.runningApplications.run("com.handbrake.HandBrake", "HandBrake");
    detector->updateCustomProcesses({{UUID::random(), "com.handbrake.HandBrake", "HandBrake active", 3}});
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("HandBrake encoding", "HandBrake active"));
}

TEST_F(ProcessDetectorTest, ACustomEntryIsNotGatedByMediaActivity)
{
    fake.runningApplications.run("us.zoom.xos", "Zoom");
    detector->updateCustomProcesses({{UUID::random(), "us.zoom.xos", "Zoom active", 7}});
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("Zoom active"));
    EXPECT_EQ(detector->signals.get()[0].score, 7);
}

TEST_F(ProcessDetectorTest, AnApplicationWithoutIdentifierNeverMatches)
{
    fake.runningApplications.list.push_back({std::nullopt, "HandBrake", {}});
    detector->updateCustomProcesses({{UUID::random(), "", "Empty", 3}});
    start();
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(ProcessDetectorTest, IdentifiersAreComparedToTheLetter)
{
    fake.runningApplications.run("com.handbrake.handbrake", "HandBrake");
    start();
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(ProcessDetectorTest, AnApplicationIsWatchedByEachOfItsIdentifiers)
{
    fake.runningApplications.run("org.kde.konsole", "Konsole", {"com.apple.Terminal"});
    detector->updateCustomProcesses({{.bundleID = "org.kde.konsole", .label = "Konsole active", .score = 3},
                                     {.bundleID = "com.apple.Terminal", .label = "From before", .score = 2},
                                     {.bundleID = "org.gnome.Terminal", .label = "Another", .score = 2}});
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("Terminal session active", "Konsole active", "From before"));
    for (const auto& signal : detector->signals.get()) {
        EXPECT_EQ(signal.appBundleID, "org.kde.konsole");
        EXPECT_EQ(signal.appName, "Konsole");
    }
}

TEST_F(ProcessDetectorTest, ANamelessApplicationGoesByItsIdentifier)
{
    fake.runningApplications.list.push_back({"com.handbrake.HandBrake", std::nullopt, {}});
    start();
    EXPECT_EQ(detector->signals.get().at(0).appName, "com.handbrake.HandBrake");
}

TEST_F(ProcessDetectorTest, TheFirstRunningApplicationOfAnIdentifierGivesTheName)
{
    fake.runningApplications.run("com.handbrake.HandBrake", "First");
    fake.runningApplications.run("com.handbrake.HandBrake", "Second");
    start();
    ASSERT_EQ(detector->signals.get().size(), 1u);
    EXPECT_EQ(detector->signals.get()[0].appName, "First");
}

TEST_F(ProcessDetectorTest, TheEmptyListIsRepublishedOnEveryEvaluation)
{
    int announced = 0;
    const auto token = detector->signals.observe([&](const auto&) { ++announced; }, Deliver::changesOnly);
    start();
    time.advance(20s);
    EXPECT_EQ(announced, 3);
}

TEST_F(ProcessDetectorTest, TheListArrivesInALaterTurn)
{
    fake.runningApplications.run("com.handbrake.HandBrake", "HandBrake");
    detector->start();
    EXPECT_TRUE(detector->signals.get().empty());
    time.runPending();
    EXPECT_EQ(detector->signals.get().size(), 1u);
}

TEST_F(ProcessDetectorTest, AFinishedLookAtTheProcessesEvaluatesAgain)
{
    start();
    fake.runningApplications.run("com.handbrake.HandBrake", "HandBrake");
    fake.runningApplications.announceChange();
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("HandBrake encoding"));
}

TEST_F(ProcessDetectorTest, AFinishedLookAtTheCameraEvaluatesAgain)
{
    fake.runningApplications.run("us.zoom.xos", "Zoom");
    start();
    fake.mediaDevices.camera = true;
    time.runPending();
    EXPECT_THAT(details(), IsEmpty());
    fake.mediaDevices.announceChange();
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("Zoom call in progress"));
    fake.mediaDevices.camera = false;
    fake.mediaDevices.announceChange();
    time.runPending();
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(ProcessDetectorTest, AFinishedLookAtTheCameraIsNothingToAStoppedDetector)
{
    fake.runningApplications.run("us.zoom.xos", "Zoom");
    start();
    detector->stop();
    fake.mediaDevices.camera = true;
    fake.mediaDevices.announceChange();
    time.runPending();
    EXPECT_THAT(details(), IsEmpty());
    EXPECT_EQ(fake.mediaDevices.cameraQuestions, 1);
}

TEST_F(ProcessDetectorTest, EveryTickAsksForAFreshLook)
{
    start();
    time.advance(30s);
    EXPECT_EQ(fake.runningApplications.refreshes, 3);
}

TEST_F(ProcessDetectorTest, ACustomListMayPublishWhileStopped)
{
    fake.runningApplications.run("org.example.App", "App");
    detector->updateCustomProcesses({{UUID::random(), "org.example.App", "App active", 3}});
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("App active"));
}

TEST_F(ProcessDetectorTest, StopEmptiesAndWhatWasOnItsWayIsDropped)
{
    fake.runningApplications.run("com.handbrake.HandBrake", "HandBrake");
    detector->start();
    detector->stop();
    time.runPending();
    fake.runningApplications.announceChange();
    time.runPending();
    EXPECT_TRUE(detector->signals.get().empty());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(ProcessDetectorTest, TheCustomListSurvivesAStop)
{
    fake.runningApplications.run("org.example.App", "App");
    detector->updateCustomProcesses({{UUID::random(), "org.example.App", "App active", 3}});
    detector->stop();
    start();
    EXPECT_THAT(details(), ElementsAre("App active"));
}

} // namespace

} // namespace orrinvale
