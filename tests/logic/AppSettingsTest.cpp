// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

struct AppSettingsTest : LogicFixture {
    void store(const std::string& name, DefaultsValue value)
    {
        fake.userDefaults.values["orrinvale." + name] = std::move(value);
    }
    DefaultsValue stored(const std::string& name) { return fake.userDefaults.values.at("orrinvale." + name); }
};

TEST_F(AppSettingsTest, AFreshStoreYieldsTheDefaultsAndRecordsTheFirstLaunch)
{
    const auto& s = settings();
    EXPECT_EQ(s.wakeMode.get(), WakeMode::smart);
    EXPECT_FALSE(s.launchAtLogin.get());
    EXPECT_THAT(s.customProcesses.get(), IsEmpty());
    EXPECT_EQ(s.appTheme.get(), AppTheme::light);
    EXPECT_TRUE(s.notificationsEnabled.get());
    EXPECT_EQ(s.cpuSensitivity.get(), 0.5);
    EXPECT_TRUE(s.pauseOnLowBattery.get());
    EXPECT_EQ(s.lowBatteryThreshold.get(), 20);
    EXPECT_FALSE(s.onlyWhenPluggedIn.get());
    EXPECT_TRUE(s.cpuSignalEnabled.get());
    EXPECT_TRUE(s.networkSignalEnabled.get());
    EXPECT_EQ(s.downloadsFolderPath.get(), "/home/anna/Downloads");
    EXPECT_FALSE(s.hasSeenOnboarding.get());
    EXPECT_FALSE(s.hasShownFeedbackPrompt.get());
    EXPECT_EQ(s.firstLaunchDate.get(), time.now());
    EXPECT_EQ(fake.userDefaults.values.size(), 1u);
    EXPECT_EQ(std::get<Instant>(stored("firstLaunchDate")), time.now());
    EXPECT_TRUE(fake.loginItem.calls.empty());
}

TEST_F(AppSettingsTest, AStoredFalseIsNotTheDefaultTrue)
{
    for (const auto* name : {"cpuSignalEnabled", "networkSignalEnabled", "pauseOnLowBattery", "notificationsEnabled"})
        store(name, false);
    EXPECT_FALSE(settings().cpuSignalEnabled.get());
    EXPECT_FALSE(settings().networkSignalEnabled.get());
    EXPECT_FALSE(settings().pauseOnLowBattery.get());
    EXPECT_FALSE(settings().notificationsEnabled.get());
}

TEST_F(AppSettingsTest, AStringOrNumberIsNoBoolean)
{
    store("cpuSignalEnabled", std::string("false"));
    store("launchAtLogin", std::string("true"));
    store("onlyWhenPluggedIn", std::int64_t(1));
    EXPECT_TRUE(settings().cpuSignalEnabled.get());
    EXPECT_FALSE(settings().launchAtLogin.get());
    EXPECT_FALSE(settings().onlyWhenPluggedIn.get());
}

TEST_F(AppSettingsTest, ModeReadsToTheLetter)
{
    store("wakeMode", std::string("Always Awake"));
    EXPECT_EQ(settings().wakeMode.get(), WakeMode::manual);
}

TEST_F(AppSettingsTest, ModeInAnotherCaseIsSmart)
{
    store("wakeMode", std::string("always awake"));
    EXPECT_EQ(settings().wakeMode.get(), WakeMode::smart);
}

TEST_F(AppSettingsTest, ThemeReadsToTheLetter)
{
    store("appTheme", std::string("Sakura"));
    EXPECT_EQ(settings().appTheme.get(), AppTheme::sakura);
}

TEST_F(AppSettingsTest, ThemeInLowerCaseIsLight)
{
    store("appTheme", std::string("sakura"));
    EXPECT_EQ(settings().appTheme.get(), AppTheme::light);
}

TEST_F(AppSettingsTest, WholeNumbersAndDoublesReadAlike)
{
    store("cpuSensitivity", std::int64_t(1));
    store("lowBatteryThreshold", 15.0);
    EXPECT_EQ(settings().cpuSensitivity.get(), 1.0);
    EXPECT_EQ(settings().lowBatteryThreshold.get(), 15);
}

TEST_F(AppSettingsTest, AFractionIsNoPercentage)
{
    store("lowBatteryThreshold", 15.5);
    EXPECT_EQ(settings().lowBatteryThreshold.get(), 20);
}

TEST_F(AppSettingsTest, NothingIsClamped)
{
    store("cpuSensitivity", 1.7);
    store("lowBatteryThreshold", std::int64_t(-5));
    EXPECT_EQ(settings().cpuSensitivity.get(), 1.7);
    EXPECT_EQ(settings().lowBatteryThreshold.get(), -5);
}

TEST_F(AppSettingsTest, WithoutADownloadsFolderItIsTheOneInTheHome)
{
    fake.applicationSupport.downloads.reset();
    EXPECT_EQ(settings().downloadsFolderPath.get(), "/home/anna/Downloads");
    EXPECT_FALSE(fake.userDefaults.values.contains("orrinvale.downloadsFolderPath"));
}

TEST_F(AppSettingsTest, ARowWithoutScoreYieldsAnEmptyListAndTheDataStays)
{
    const DefaultsData bad{R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","bundleID":"a","label":"b"}])"};
    store("customProcesses", bad);
    EXPECT_THAT(settings().customProcesses.get(), IsEmpty());
    EXPECT_EQ(std::get<DefaultsData>(stored("customProcesses")), bad);
    settings().customProcesses.set({});
    EXPECT_EQ(std::get<DefaultsData>(stored("customProcesses")).bytes, "[]");
}

TEST_F(AppSettingsTest, TheWatchListIsStoredInItsFormAndReadsBackInAnyOrder)
{
    const auto id = *UUID::fromText("0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10");
    settings().customProcesses.set({{id, "org/example", "Ex \"active\" —", 15}});
    EXPECT_EQ(
        std::get<DefaultsData>(stored("customProcesses")).bytes,
        R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","bundleID":"org/example","label":"Ex \"active\" —","score":15}])");
    const auto read = decodeCustomProcesses(
        R"([{"score":15.0,"label":"l","more":[],"bundleID":"b","id":"0f6b3c2e-9d41-4a57-8e2b-5c1d7a9e3f10"}])");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->at(0), (CustomProcess{id, "b", "l", 15}));
}

TEST_F(AppSettingsTest, ScoresUpToTheLargestNumberAndNoFurtherDecode)
{
    const auto scoreOf = [](const std::string& score) -> std::optional<std::int64_t> {
        const auto read = decodeCustomProcesses(
            R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","bundleID":"b","label":"l","score":)" + score + "}]");
        return read ? std::optional(read->at(0).score) : std::nullopt;
    };
    EXPECT_EQ(scoreOf("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(scoreOf("9223372036854775808"), std::nullopt);
    EXPECT_EQ(scoreOf("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(scoreOf("-9223372036854775808.0"), INT64_MIN);
    EXPECT_EQ(scoreOf("9223372036854774784.0"), 9223372036854774784); // the largest double below
    EXPECT_EQ(scoreOf("9223372036854775808.0"), std::nullopt);
    EXPECT_EQ(scoreOf("-9223372036854777856.0"), std::nullopt); // the first double below the smallest
}

TEST_F(AppSettingsTest, WatchListsOfWrongTypesDoNotDecode)
{
    for (const auto* text :
         {"", "{}", "[1]", "[[]]", R"([{"id":"x","bundleID":"b","label":"l","score":1}])",
          R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","bundleID":"b","label":"l","score":"1"}])",
          R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","bundleID":"b","label":"l","score":1.5}])",
          R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","bundleID":"b","label":"l","score":18446744073709551615}])",
          R"([{"id":"0F6B3C2E-9D41-4A57-8E2B-5C1D7A9E3F10","bundleID":"b","label":"l","score":1e300}])"})
        EXPECT_FALSE(decodeCustomProcesses(text)) << text;
}

TEST_F(AppSettingsTest, EachAssignmentIsStoredUnderItsKeyAndType)
{
    auto& s = settings();
    s.wakeMode.set(WakeMode::off);
    s.appTheme.set(AppTheme::sakura);
    s.launchAtLogin.set(true);
    s.notificationsEnabled.set(false);
    s.cpuSensitivity.set(1.0);
    s.pauseOnLowBattery.set(false);
    s.lowBatteryThreshold.set(35);
    s.onlyWhenPluggedIn.set(true);
    s.cpuSignalEnabled.set(false);
    s.networkSignalEnabled.set(false);
    s.downloadsFolderPath.set("/tmp/x");
    s.hasSeenOnboarding.set(true);
    s.firstLaunchDate.set(Instant(5s));
    s.hasShownFeedbackPrompt.set(true);
    EXPECT_EQ(stored("wakeMode"), DefaultsValue(std::string("Off")));
    EXPECT_EQ(stored("appTheme"), DefaultsValue(std::string("Sakura")));
    EXPECT_EQ(stored("launchAtLogin"), DefaultsValue(true));
    EXPECT_EQ(stored("notificationsEnabled"), DefaultsValue(false));
    EXPECT_EQ(stored("cpuSensitivity"), DefaultsValue(1.0));
    EXPECT_EQ(stored("pauseOnLowBattery"), DefaultsValue(false));
    EXPECT_EQ(stored("lowBatteryThreshold"), DefaultsValue(std::int64_t(35)));
    EXPECT_EQ(stored("onlyWhenPluggedIn"), DefaultsValue(true));
    EXPECT_EQ(stored("cpuSignalEnabled"), DefaultsValue(false));
    EXPECT_EQ(stored("networkSignalEnabled"), DefaultsValue(false));
    EXPECT_EQ(stored("downloadsFolderPath"), DefaultsValue(std::string("/tmp/x")));
    EXPECT_EQ(stored("hasSeenOnboarding"), DefaultsValue(true));
    EXPECT_EQ(stored("firstLaunchDate"), DefaultsValue(Instant(5s)));
    EXPECT_EQ(stored("hasShownFeedbackPrompt"), DefaultsValue(true));
}

TEST_F(AppSettingsTest, ASynchronousObserverHearsOfTheValueBeforeItIsStored)
{
    settings().lowBatteryThreshold.set(30);
    std::optional<DefaultsValue> seen;
    const auto token = settings().lowBatteryThreshold.observe(
        [&](std::int64_t) { seen = fake.userDefaults.object("orrinvale.lowBatteryThreshold"); }, Deliver::changesOnly);
    settings().lowBatteryThreshold.set(40);
    EXPECT_EQ(*seen, DefaultsValue(std::int64_t(30)));
}

TEST_F(AppSettingsTest, EqualValuesAreWrittenAndActedOnAgain)
{
    settings().launchAtLogin.set(true);
    const auto writes = fake.userDefaults.writes;
    settings().launchAtLogin.set(true);
    EXPECT_EQ(fake.userDefaults.writes, writes + 1);
    EXPECT_EQ(fake.loginItem.calls, (std::vector{true, true}));
}

TEST_F(AppSettingsTest, ARefusedLoginItemPrintsItsLineAndLeavesTheChoice)
{
    settings();
    fake.loginItem.refusal = "Permission denied";
    testing::internal::CaptureStdout();
    settings().launchAtLogin.set(true);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "⚠️ AppSettings: Launch at login failed — Permission denied\n");
    EXPECT_TRUE(settings().launchAtLogin.get());
    EXPECT_EQ(stored("launchAtLogin"), DefaultsValue(true));
}

TEST_F(AppSettingsTest, ASecondLaunchKeepsTheFirstLaunchDate)
{
    const auto first = settings().firstLaunchDate.get();
    time.advance(48h);
    const AppSettings second(platform(), calendar);
    EXPECT_EQ(second.firstLaunchDate.get(), first);
    EXPECT_EQ(second.daysSinceFirstLaunch(), 2);
}

TEST_F(AppSettingsTest, DaysSinceTheFirstLaunchAreWholeOnes)
{
    settings();
    time.advance(24h - 1min);
    EXPECT_EQ(settings().daysSinceFirstLaunch(), 0);
    time.advance(1min);
    EXPECT_EQ(settings().daysSinceFirstLaunch(), 1);
}

TEST(LocalCalendar, ADayAcrossAChangeOfSummerTimeIsADay)
{
    const LocalCalendar berlin("Europe/Berlin");
    const Instant noonBefore{1774695600s}; // 2026-03-28T11:00:00Z, noon in Berlin; the clocks go forward at night
    EXPECT_EQ(berlin.wholeDays(noonBefore, noonBefore + 22h + 59min), 0);
    EXPECT_EQ(berlin.wholeDays(noonBefore, noonBefore + 23h), 1);
    const Instant noonInAutumn{1792836000s}; // 2026-10-24T10:00:00Z
    EXPECT_EQ(berlin.wholeDays(noonInAutumn, noonInAutumn + 24h), 0);
    EXPECT_EQ(berlin.wholeDays(noonInAutumn, noonInAutumn + 25h), 1);
}

TEST(LocalCalendar, KeysAndHoursAreLocal)
{
    const LocalCalendar berlin("Europe/Berlin");
    const Instant late{1773529200s}; // 2026-03-14T23:00:00Z
    EXPECT_EQ(berlin.dateKey(late), "2026-03-15");
    EXPECT_EQ(berlin.hour(late), 0);
    EXPECT_EQ(LocalCalendar("UTC").dateKey(late), "2026-03-14");
    EXPECT_EQ(LocalCalendar("UTC").hour(late), 23);
}

TEST_F(AppSettingsTest, ThemesMapToAppearances)
{
    auto& s = settings();
    for (const auto theme : allAppThemes)
        s.appTheme.set(theme);
    EXPECT_THAT(fake.appearance.applied, ElementsAre(AppearanceChoice::light, AppearanceChoice::dark,
                                                     AppearanceChoice::followSystem, AppearanceChoice::light));
}

TEST_F(AppSettingsTest, DarkIsTheDarkThemeOrADarkSystem)
{
    auto& s = settings();
    fake.appearance.systemIsDark = true;
    s.appTheme.set(AppTheme::light);
    EXPECT_FALSE(s.isDarkTheme());
    s.appTheme.set(AppTheme::sakura);
    EXPECT_FALSE(s.isDarkTheme());
    s.appTheme.set(AppTheme::dark);
    EXPECT_TRUE(s.isDarkTheme());
    s.appTheme.set(AppTheme::system);
    EXPECT_TRUE(s.isDarkTheme());
    fake.appearance.systemIsDark = false;
    EXPECT_FALSE(s.isDarkTheme());
}

TEST(AppTheme, RawValuesAndTheirOrder)
{
    std::vector<std::string_view> texts;
    for (const auto theme : allAppThemes)
        texts.push_back(rawValue(theme));
    EXPECT_THAT(texts, ElementsAre("Light", "Dark", "System", "Sakura"));
}

TEST(AppSettingsDeathTest, TheSharedInstanceWithoutAPlatformIsFatal)
{
    EXPECT_DEATH(AppSettings::shared(), "before a platform was provided");
}

} // namespace

} // namespace orrinvale
