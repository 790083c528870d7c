// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WakeEngine.h"

#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

const std::string folder = "/home/anna/Downloads";

// Signals come from watched applications of the user's own list: any text and any score.
struct WakeEngineTest : LogicFixture {
    WakeEngineTest()
    {
        fake.applicationSupport.support = support.path;
        fake.folderWatcher.folders[folder];
    }
    void start()
    {
        engine.emplace(platform(), settings(), calendar);
        engine->start();
        time.runPending();
    }
    void give(std::vector<std::pair<std::string, std::int64_t>> signals)
    {
        fake.runningApplications.list.clear();
        std::vector<CustomProcess> list;
        for (const auto& [detail, score] : signals) {
            const auto bundleID = "org.example." + std::to_string(list.size());
            fake.runningApplications.run(bundleID, "Example");
            list.push_back({UUID::random(), bundleID, detail, score});
        }
        settings().customProcesses.set(list);
        time.runPending();
    }
    void choose(WakeMode mode)
    {
        engine->mode.set(mode);
        engine->evaluate();
    }
    const WakeState& state() const { return engine->state.get(); }
    std::vector<std::string> messages() const
    {
        std::vector<std::string> texts;
        for (const auto& entry : engine->activityLog.get())
            texts.push_back(std::string(rawValue(entry.category)) + ": " + entry.message);
        return texts;
    }

    TemporaryFolder support;
    std::optional<WakeEngine> engine;
};

TEST_F(WakeEngineTest, TheConstructorStartsAndReadsNothing)
{
    engine.emplace(platform(), settings(), calendar);
    EXPECT_EQ(time.timerCount(), 0u);
    EXPECT_EQ(fake.powerSources.reads, 0);
    EXPECT_EQ(engine->mode.get(), WakeMode::smart);
    EXPECT_EQ(state(), WakeState::idle());
}

TEST_F(WakeEngineTest, ScoresOfTwoAndOneWakeWithTheDetailOfTheTwo)
{
    start();
    give({{"one", 1}, {"two", 2}});
    EXPECT_EQ(state(), WakeState::awake("two"));
    EXPECT_EQ(fake.powerAssertions.held.begin()->second, "two");
}

TEST_F(WakeEngineTest, ASingleScoreOfTwoNeverWakes)
{
    start();
    give({{"two", 2}});
    EXPECT_EQ(state(), WakeState::idle());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(WakeEngineTest, OfEqualTopScoresTheEarlierGivesTheReason)
{
    start();
    give({{"low", 1}, {"first", 3}, {"second", 3}});
    EXPECT_EQ(state(), WakeState::awake("first"));
}

TEST_F(WakeEngineTest, DetectorsAreHeardInTheOrderDownloadNetworkProcessCpu)
{
    start();
    give({{"process", 5}});
    fake.folderWatcher.folders[folder] = {{"film.part", time.now() + 1h}};
    time.advance(5s);
    EXPECT_EQ(state(), WakeState::awake("Downloading film.part"));
    ASSERT_EQ(engine->activeSignals.get().size(), 2u);
    EXPECT_EQ(engine->activeSignals.get()[1].detail, "process");
}

TEST_F(WakeEngineTest, AChangingDetailIsANewStateAndANewEntry)
{
    start();
    give({{"at 87 %", 4}});
    give({{"at 88 %", 4}});
    EXPECT_THAT(messages(), ElementsAre("awake: at 88 %", "awake: at 87 %"));
    EXPECT_EQ(fake.powerAssertions.created.size(), 1u); // and keeps the first name
}

TEST_F(WakeEngineTest, FromIdleATotalBelowThreeWritesNothingAndStartsNoCountdown)
{
    start();
    const auto timers = time.timerCount();
    give({{"two", 2}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(time.timerCount(), timers);
}

TEST_F(WakeEngineTest, CooldownHoldsTheAssertionForThirtySecondsAndNotOneMore)
{
    start();
    give({{"work", 3}});
    give({});
    EXPECT_EQ(state(), WakeState::cooldown(30));
    time.advance(29s);
    EXPECT_EQ(state(), WakeState::cooldown(1));
    EXPECT_EQ(fake.powerAssertions.held.size(), 1u);
    time.advance(1s);
    EXPECT_EQ(state(), WakeState::idle());
    EXPECT_TRUE(fake.powerAssertions.held.empty());
    EXPECT_THAT(messages(),
                ElementsAre("idle: Cooldown complete — system may sleep", "cooldown: Cooldown started", "awake: work"));
}

TEST_F(WakeEngineTest, ReturningSignalsCancelTheCountdown)
{
    start();
    give({{"work", 3}});
    give({});
    time.advance(18s);
    ASSERT_EQ(state(), WakeState::cooldown(12));
    give({{"again", 3}});
    EXPECT_EQ(state(), WakeState::awake("again"));
    time.advance(60s);
    EXPECT_EQ(messages().front(), "awake: again");
    EXPECT_EQ(fake.powerAssertions.created.size(), 1u);
}

TEST_F(WakeEngineTest, ARunningCountdownIsNeitherRestartedNorLogged)
{
    start();
    give({{"work", 3}});
    give({});
    time.advance(10s);
    give({{"weak", 1}});
    engine->evaluate();
    EXPECT_EQ(state(), WakeState::cooldown(20));
    EXPECT_EQ(messages().size(), 2u);
}

TEST_F(WakeEngineTest, OffWhileIdleLogsNothing)
{
    start();
    choose(WakeMode::off);
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(WakeEngineTest, OffWhileAwakeReleasesAtOnceWithoutCooldown)
{
    start();
    give({{"work", 3}});
    choose(WakeMode::off);
    EXPECT_EQ(state(), WakeState::idle());
    EXPECT_TRUE(fake.powerAssertions.held.empty());
    EXPECT_EQ(messages().front(), "idle: orrinvale is off");
}

TEST_F(WakeEngineTest, ManualModeHasItsReasonAndItsMessage)
{
    start();
    choose(WakeMode::manual);
    EXPECT_EQ(state(), WakeState::awake("Manual mode — always awake"));
    EXPECT_THAT(messages(), ElementsAre("awake: Manual mode"));
    EXPECT_EQ(fake.powerAssertions.held.begin()->second, "Manual mode");
}

TEST_F(WakeEngineTest, ManualModePausesAtTheBatteryThresholdAndNotAboveIt)
{
    fake.powerSources.setBattery(21);
    start();
    choose(WakeMode::manual);
    EXPECT_TRUE(state().isAwake());
    fake.powerSources.setBattery(20);
    time.advance(15s);
    EXPECT_EQ(state(), WakeState::idle());
    EXPECT_EQ(messages().front(), "idle: Paused — battery at 20% (below 20% safety threshold)");
    fake.powerSources.setMains(20);
    time.advance(15s);
    EXPECT_TRUE(state().isAwake());
}

TEST_F(WakeEngineTest, OffWhileUnpluggedSaysOffAndNotThePause)
{
    fake.powerSources.setBattery(80);
    settings().onlyWhenPluggedIn.set(true);
    fake.powerSources.setMains(80);
    start();
    choose(WakeMode::manual);
    engine->mode.set(WakeMode::off);
    fake.powerSources.setBattery(80);
    time.advance(15s);
    EXPECT_EQ(messages().front(), "idle: orrinvale is off");
}

TEST_F(WakeEngineTest, OnlyWhenPluggedInPausesAtOnceWhenItIsSwitchedOn)
{
    fake.powerSources.setBattery(80);
    start();
    give({{"work", 3}});
    settings().onlyWhenPluggedIn.set(true);
    time.runPending();
    EXPECT_EQ(messages().front(), "idle: Paused — orrinvale is set to only run while plugged in");
    settings().onlyWhenPluggedIn.set(false);
    time.runPending();
    EXPECT_EQ(state(), WakeState::awake("work"));
}

TEST_F(WakeEngineTest, ThresholdAndPauseSettingAreFollowedAtOnce)
{
    fake.powerSources.setBattery(50);
    start();
    give({{"work", 3}});
    settings().lowBatteryThreshold.set(50);
    time.runPending();
    EXPECT_EQ(messages().front(), "idle: Paused — battery at 50% (below 50% safety threshold)");
    settings().pauseOnLowBattery.set(false);
    time.runPending();
    EXPECT_TRUE(state().isAwake());
}

TEST_F(WakeEngineTest, APauseDuringTheCooldownEndsIt)
{
    fake.powerSources.setBattery(50);
    start();
    give({{"work", 3}});
    give({});
    settings().onlyWhenPluggedIn.set(true);
    time.runPending();
    EXPECT_EQ(state(), WakeState::idle());
    time.advance(60s);
    EXPECT_EQ(messages().size(), 3u);
}

TEST_F(WakeEngineTest, WithoutBatteryInformationNothingPauses)
{
    settings().onlyWhenPluggedIn.set(true);
    start();
    give({{"work", 3}});
    EXPECT_TRUE(state().isAwake());
}

TEST_F(WakeEngineTest, TheLogHoldsTwoHundredEntriesAndObserversMaySeeOneMoreOnce)
{
    start();
    std::size_t longest = 0;
    const auto token = engine->activityLog.observe([&](const auto& log) { longest = std::max(longest, log.size()); });
    for (int i = 0; i < 250; ++i)
        give({{"work " + std::to_string(i), 3}});
    EXPECT_EQ(engine->activityLog.get().size(), 200u);
    EXPECT_EQ(longest, 201u);
    EXPECT_EQ(messages().front(), "awake: work 249");
    EXPECT_EQ(messages().back(), "awake: work 50");
}

TEST_F(WakeEngineTest, TheStoredModeIsTakenAtTheStart)
{
    settings().wakeMode.set(WakeMode::manual);
    start();
    EXPECT_EQ(engine->mode.get(), WakeMode::manual);
    EXPECT_TRUE(state().isAwake());
}

TEST_F(WakeEngineTest, TheStoredLogIsTakenAsItIs)
{
    start();
    give({{"work", 3}});
    time.advance(1s);
    engine.emplace(platform(), settings(), calendar);
    engine->start();
    EXPECT_THAT(messages(), ElementsAre("awake: work"));
}

TEST_F(WakeEngineTest, NothingIsDecidedBeforeTheFirstValuesArrive)
{
    settings().wakeMode.set(WakeMode::manual);
    engine.emplace(platform(), settings(), calendar);
    engine->start();
    EXPECT_EQ(state(), WakeState::idle());
    time.runPending();
    EXPECT_TRUE(state().isAwake());
}

TEST_F(WakeEngineTest, ARefusedAssertionIsAskedForAgainAtTheNextNonIdleTransition)
{
    fake.powerAssertions.status = -1;
    start();
    testing::internal::CaptureStdout();
    give({{"first", 3}});
    testing::internal::GetCapturedStdout();
    fake.powerAssertions.status = 0;
    engine->evaluate();
    EXPECT_TRUE(fake.powerAssertions.held.empty());
    give({{"second", 3}});
    EXPECT_EQ(fake.powerAssertions.held.begin()->second, "second");
}

TEST_F(WakeEngineTest, EntriesCarryTheMomentAndAnIdentifierOfTheirOwn)
{
    start();
    time.advance(7s);
    give({{"a", 3}});
    give({{"b", 3}});
    const auto& log = engine->activityLog.get();
    EXPECT_EQ(log[0].date, time.now());
    EXPECT_NE(log[0].id, log[1].id);
}

TEST_F(WakeEngineTest, StopFreesTheAssertionAndLeavesNoTimerStateOrLogAlone)
{
    start();
    give({{"work", 3}});
    give({});
    time.advance(3s);
    engine->stop();
    EXPECT_TRUE(fake.powerAssertions.held.empty());
    EXPECT_EQ(time.timerCount(), 0u);
    EXPECT_EQ(fake.folderWatcher.liveWatches(), 0u);
    EXPECT_EQ(state(), WakeState::cooldown(27));
    const auto entries = messages().size();
    time.advance(60s);
    give({{"late", 3}});
    EXPECT_EQ(messages().size(), entries);
}

TEST_F(WakeEngineTest, MayBeDestroyedWithWorkOnItsWay)
{
    start();
    give({{"work", 3}});
    settings().onlyWhenPluggedIn.set(true);
    fake.folderWatcher.notify(folder);
    engine.reset();
    time.advance(60s);
    EXPECT_TRUE(fake.powerAssertions.held.empty());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(WakeEngineTest, SignalsReachTheUsageTrackerInOffModeToo)
{
    settings().wakeMode.set(WakeMode::off);
    start();
    give({{"lone terminal", 1}});
    time.advance(15s);
    EXPECT_EQ(engine->appUsageTracker().recordFor(time.now()).appSeconds.at("org.example.0"), 15);
}

using WakeEngineDeathTest = WakeEngineTest;

TEST_F(WakeEngineDeathTest, AnOverflowingSumOfScoresIsFatal)
{
    start();
    EXPECT_DEATH(give({{"a", INT64_MAX}, {"b", 1}}), "the sum of scores overflows 64 bits");
}

} // namespace

} // namespace orrinvale
