// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppUsageTracker.h"

#include "base/AtomicFile.h"
#include "tests/logic/LogicFixture.h"

#include <fstream>

namespace orrinvale
{

namespace
{

struct AppUsageTest : LogicFixture {
    AppUsageTest() { tracker.emplace(platform(), calendar); }

    static WakeSignal signal(std::optional<std::string> bundleID, std::optional<std::string> name)
    {
        return {.source = SignalSource::process,
                .detail = "d",
                .score = 1,
                .timestamp = {},
                .appBundleID = bundleID,
                .appName = name};
    }
    DayUsageRecord today() const { return tracker->recordFor(time.now()); }

    TemporaryFolder support;
    FakeApplicationSupport& named = (fake.applicationSupport.support = support.path, fake.applicationSupport);
    std::optional<AppUsageTracker> tracker;
};

TEST_F(AppUsageTest, TwoAppsForOneTickGrowTheHourOnceAndEachApp)
{
    tracker->start();
    tracker->updateActiveApps({signal("a", "A"), signal("b", "B")});
    time.advance(15s);
    EXPECT_EQ(today().hourlySeconds[9], 15);
    EXPECT_EQ(today().appSeconds, (std::map<std::string, double>{{"a", 15}, {"b", 15}}));
    EXPECT_EQ(today().appNames.at("b"), "B");
    EXPECT_EQ(today().dateKey, "2026-03-14");
}

TEST_F(AppUsageTest, WithoutAnActiveAppNothingIsRecordedOrWritten)
{
    tracker->start();
    time.advance(1h);
    EXPECT_TRUE(tracker->days.get().empty());
    EXPECT_FALSE(std::filesystem::exists(tracker->store().fileURL()));
}

TEST_F(AppUsageTest, KeysAreTheIdentifierOrTheTool)
{
    tracker->start();
    tracker->updateActiveApps({signal("com.apple.Safari", "Safari"), signal({}, "ffmpeg"),
                               signal("org.example.nameless", {}), signal("com.apple.Safari", "Safari 2")});
    time.advance(15s);
    EXPECT_EQ(today().appNames,
              (std::map<std::string, std::string>{{"com.apple.Safari", "Safari 2"}, {"tool.ffmpeg", "ffmpeg"}}));
}

TEST_F(AppUsageTest, AnEmptyListOfSignalsEndsTheCrediting)
{
    tracker->start();
    tracker->updateActiveApps({signal("a", "A")});
    time.advance(15s);
    tracker->updateActiveApps({});
    time.advance(1h);
    EXPECT_EQ(today().appSeconds.at("a"), 15);
}

TEST_F(AppUsageTest, ATickAfterASuspendCreditsFifteenSecondsOnly)
{
    tracker->start();
    tracker->updateActiveApps({signal("a", "A")});
    time.sleepMachineFor(2h);
    time.advance(15s);
    EXPECT_EQ(today().appSeconds.at("a"), 15);
    EXPECT_EQ(today().hourlySeconds[11], 15);
}

TEST_F(AppUsageTest, NoTimeIsCreditedWhileTheUserCannotSeeTheSession)
{
    tracker->start();
    tracker->updateActiveApps({signal("a", "A")});
    fake.sessionEvents.report(ScreenPresence::asleep);
    time.advance(1h);
    EXPECT_TRUE(tracker->days.get().empty());
    fake.sessionEvents.report(ScreenPresence::awake);
    time.advance(15s);
    EXPECT_EQ(today().appSeconds.at("a"), 15);
}

TEST_F(AppUsageTest, TheSleepingScreenSurvivesAStop)
{
    tracker->start();
    tracker->screensDidSleep();
    tracker->stop();
    tracker->start();
    EXPECT_TRUE(tracker->isScreenAsleep());
}

TEST_F(AppUsageTest, StopEndsTimerAndRegistrations)
{
    tracker->start();
    tracker->stop();
    fake.sessionEvents.report(ScreenPresence::asleep);
    EXPECT_FALSE(tracker->isScreenAsleep());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(AppUsageTest, RecordsAreReadAtTheStartAndContinued)
{
    tracker->start();
    tracker->updateActiveApps({signal("a", "A")});
    time.advance(16s);
    AppUsageTracker second(platform(), calendar);
    second.start();
    EXPECT_EQ(second.days.get(), tracker->days.get());
}

TEST_F(AppUsageTest, ACorruptFileIsAnEmptyHistoryThatTheNextSampleRewrites)
{
    std::filesystem::create_directories(tracker->store().fileURL().parent_path());
    std::ofstream(tracker->store().fileURL()) << "{\"2026-01-01\":";
    tracker->start();
    EXPECT_TRUE(tracker->days.get().empty());
    tracker->updateActiveApps({signal("a", "A")});
    time.advance(16s);
    const auto written = decodeUsageDays(*readWholeFile(tracker->store().fileURL()));
    ASSERT_TRUE(written);
    EXPECT_EQ(written->size(), 1u);
    EXPECT_TRUE(written->contains("2026-03-14"));
}

TEST_F(AppUsageTest, TheFileHoldsAHundredAndTwentyDaysAndTheMemoryAll)
{
    UsageDays days;
    for (int i = 0; i < 121; ++i) {
        const auto key = calendar.dateKey(VirtualTime::defaultStart - i * 24h);
        days[key] = {key, {}, {}, {}};
    }
    AppUsageStore store(fake.applicationSupport, time);
    store.save(days);
    time.advance(300ms);
    auto written = store.load();
    EXPECT_EQ(written.size(), 120u);
    EXPECT_FALSE(written.contains(days.begin()->first));
    days.erase(days.begin());
    store.save(days);
    time.advance(300ms);
    EXPECT_EQ(store.load().size(), 120u);
}

TEST_F(AppUsageTest, TheRepeatedHourInAutumnHoldsBoth)
{
    const LocalCalendar berlin("Europe/Berlin");
    time.setWallClock(Instant(1792886400s)); // 2026-10-25T00:00:00Z, two o'clock for the first time
    AppUsageTracker autumn(platform(), berlin);
    autumn.start();
    autumn.updateActiveApps({signal("a", "A")});
    time.advance(2h - 15s);
    EXPECT_EQ(autumn.recordFor(time.now()).hourlySeconds[2], 7185);
    EXPECT_EQ(autumn.recordFor(time.now()).hourlySeconds[3], 0);
}

TEST_F(AppUsageTest, DaysArePublished)
{
    int announced = 0;
    tracker->start();
    const auto token = tracker->days.observe([&](const auto&) { ++announced; }, Deliver::changesOnly);
    tracker->updateActiveApps({signal("a", "A")});
    time.advance(30s);
    EXPECT_EQ(announced, 2);
}

TEST(DayUsageRecord, ReadsBackAndTakesWholeNumbersAndFractionsAlike)
{
    const UsageDays days{{"2026-03-14", {"2026-03-14", {15, 30}, {{"a/b", 45.5}}, {{"a/b", "Ä"}}}}};
    const auto text = encodeUsageDays(days);
    EXPECT_NE(text.find("a/b"), text.npos);
    EXPECT_EQ(decodeUsageDays(text), days);
    const auto hours = "[15" + std::string(",0") + ",15.0" + [] {
        std::string rest;
        for (int i = 0; i < 21; ++i)
            rest += ",0";
        return rest;
    }() + "]";
    const auto read = decodeUsageDays(R"({"d":{"appNames":{},"appSeconds":{"a":15},"hourlySeconds":)" + hours +
                                      R"(,"dateKey":"d","more":1}})");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->at("d").hourlySeconds[0], read->at("d").hourlySeconds[2]);
}

TEST(DayUsageRecord, OtherThanTwentyFourHoursOrWrongTypesDoNotDecode)
{
    const auto record = [](const std::string& hours, const std::string& seconds = "{}",
                           const std::string& names = "{}") {
        return R"({"d":{"dateKey":"d","hourlySeconds":)" + hours + R"(,"appSeconds":)" + seconds + R"(,"appNames":)" +
               names + "}}";
    };
    const auto hours = [](int count) {
        std::string text = "[";
        for (int i = 0; i < count; ++i)
            text += i == 0 ? "0" : ",0";
        return text + "]";
    };
    EXPECT_TRUE(decodeUsageDays(record(hours(24))));
    EXPECT_FALSE(decodeUsageDays(record(hours(23))));
    EXPECT_FALSE(decodeUsageDays(record(hours(25))));
    EXPECT_FALSE(decodeUsageDays(record(hours(24), R"({"a":"15"})")));
    EXPECT_FALSE(decodeUsageDays(record(hours(24), "{}", R"({"a":15})")));
    EXPECT_FALSE(decodeUsageDays(R"({"d":{"dateKey":"d","appSeconds":{},"appNames":{}}})"));
    EXPECT_FALSE(decodeUsageDays("[]"));
    EXPECT_FALSE(decodeUsageDays(""));
}

TEST(DayUsageRecord, TopAppsAreSortedBySecondsAndCut)
{
    const DayUsageRecord record{"d", {}, {{"a", 15}, {"b", 45}, {"c", 30}}, {{"b", "Bee"}}};
    const auto top = record.topApps(2);
    ASSERT_EQ(top.size(), 2u);
    EXPECT_EQ(top[0].name, "Bee");
    EXPECT_EQ(top[1].name, "c");
    EXPECT_TRUE(record.topApps(0).empty());
    EXPECT_EQ(record.topApps(9).size(), 3u);
    EXPECT_DEATH(record.topApps(-1), "negative");
}

TEST(FormatDuration, Texts)
{
    EXPECT_EQ(formatDuration(0), "< 1m");
    EXPECT_EQ(formatDuration(59), "< 1m");
    EXPECT_EQ(formatDuration(60), "1m");
    EXPECT_EQ(formatDuration(3600), "1h");
    EXPECT_EQ(formatDuration(3660), "1h 1m");
    EXPECT_EQ(formatDuration(7500), "2h 5m");
    EXPECT_EQ(formatDuration(27 * 3600 + 180), "27h 3m");
    EXPECT_EQ(formatDuration(1e308), formatDuration(60e15)); // stored by someone else
}

} // namespace

} // namespace orrinvale
