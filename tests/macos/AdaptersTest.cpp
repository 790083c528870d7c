// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/CFObject.h"
#include "platform/macos/MacCPUCounters.h"
#include "platform/macos/MacFolderWatcher.h"
#include "platform/macos/MacNetworkCounters.h"
#include "platform/macos/MacPowerAssertions.h"
#include "platform/macos/MacPowerSources.h"
#include "platform/macos/MacUserDefaults.h"
#include "platform/macos/MacUserLocale.h"
#include "platform/macos/MediaHardware.h"
#include "tests/macos/fakes/Fakes.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>

#include <IOKit/pwr_mgt/IOPMLib.h>
#include <dispatch/dispatch.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace orrinvale;
using namespace testing;
using namespace std::string_literals;

namespace
{

constexpr auto type = "NoIdleSleepAssertion";

// Every adapter gives back what it was given, whatever went wrong.
class MacAdapters : public Test
{
protected:
    ~MacAdapters() override
    {
        EXPECT_EQ(fake::objects, 0) << "objects that nobody released";
        EXPECT_EQ(fake::hostRights, 0);
        EXPECT_TRUE(fake::mapped.empty());
        EXPECT_EQ(fake::interfaceLists, 0);
        EXPECT_EQ(fake::registryObjects, 0);
        EXPECT_EQ(fake::sources, 0);
        fake::reset();
    }
};

auto openDescriptors() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

} // namespace

using MacPowerAssertionsTest = MacAdapters;

TEST_F(MacPowerAssertionsTest, HoldsUntilReleased)
{
    MacPowerAssertions power;
    const auto [status, id] = power.create(type, 255, "Downloading a.part");
    EXPECT_EQ(status, 0);
    ASSERT_EQ(fake::assertions.size(), 1u);
    EXPECT_EQ(fake::assertions[id].type, type);
    EXPECT_EQ(fake::assertions[id].name, "Downloading a.part");
    EXPECT_EQ(fake::assertions[id].level, 255u);
    power.release(id);
    power.release(id); // unknown by now
    EXPECT_TRUE(fake::assertions.empty());
}

TEST_F(MacPowerAssertionsTest, TellsTheErrorAsANegativeNumber)
{
    fake::assertionStatus = static_cast<int>(0xe00002bc);
    EXPECT_EQ(MacPowerAssertions().create(type, 255, "why").status, -536870212);
    fake::noMemory = true;
    EXPECT_EQ(MacPowerAssertions().create(type, 255, "why").status, kIOReturnBadArgument);
    EXPECT_LT(kIOReturnBadArgument, 0);
}

TEST_F(MacPowerAssertionsTest, TakesANameThatIsNoText)
{
    const auto [status, id] = MacPowerAssertions().create(type, 255, "Downloading \xFF.part");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(fake::assertions[id].name, "Downloading \uFFFD.part");
}

TEST_F(MacPowerAssertionsTest, CutsLongNamesBetweenCharacters)
{
    std::string sharps;
    for (int i = 0; i < 200; ++i)
        sharps += "ß";
    EXPECT_EQ(firstCharacters("abc", 3), "abc");
    EXPECT_EQ(firstCharacters("äbc", 2), "äb");
    EXPECT_EQ(firstCharacters("", 128), "");
    const auto id = MacPowerAssertions().create(type, 255, sharps).id;
    EXPECT_EQ(fake::assertions[id].name.size(), 256u);
    const auto broken = MacPowerAssertions().create(type, 255, std::string(200, '\x80')).id; // no character begins
    EXPECT_EQ(fake::assertions[broken].name.size(), 128 * std::string("\uFFFD").size());
}

using MacPowerSourcesTest = MacAdapters;

TEST_F(MacPowerSourcesTest, ReadsTheFirst)
{
    fake::powerSources = {{{"Power Source State", "AC Power"s},
                           {"Current Capacity", std::int64_t{57}},
                           {"Max Capacity", std::int64_t{100}}},
                          {{"Power Source State", "Battery Power"s}}};
    EXPECT_EQ(MacPowerSources().first(), (PowerSource{"AC Power", 57, 100}));
}

TEST_F(MacPowerSourcesTest, KnowsNothingWithoutSources)
{
    EXPECT_EQ(MacPowerSources().first(), std::nullopt);
    fake::powerSources = {{}};
    for (const auto each : {fake::Snapshot::none, fake::Snapshot::withoutList, fake::Snapshot::listOfOtherType}) {
        fake::snapshot = each;
        EXPECT_EQ(MacPowerSources().first(), std::nullopt);
    }
    fake::snapshot = fake::Snapshot::complete;
    fake::descriptionsAreText = true;
    EXPECT_EQ(MacPowerSources().first(), std::nullopt);
}

TEST_F(MacPowerSourcesTest, LeavesOutWhatIsMissingOrOfAnotherType)
{
    fake::powerSources = {
        {{"Power Source State", std::int64_t{1}}, {"Current Capacity", "57"s}, {"Max Capacity", 99.5}}};
    EXPECT_EQ(MacPowerSources().first(), PowerSource());
    fake::powerSources = {{{"Current Capacity", std::int64_t{57}}, {"Max Capacity", true}}};
    EXPECT_EQ(MacPowerSources().first(), (PowerSource{std::nullopt, 57, std::nullopt}));
    fake::powerSources = {{{"Power Source State", "Akku äöü €😀"s}}};
    EXPECT_EQ(MacPowerSources().first()->state, "Akku äöü €😀");
    fake::halfACharacter = true;
    EXPECT_EQ(MacPowerSources().first()->state, std::nullopt);
}

using MacCPUCountersTest = MacAdapters;

TEST_F(MacCPUCountersTest, CountsFromItsMakingInTheOrderOfTheInterface)
{
    fake::host = {1000, 2000, 3000, 4000};
    fake::processors = {{10, 20, 30, 40}, {50, 60, 70, 80}};
    MacCPUCounters counters;
    fake::host = {1001, 2002, 3003, 4004};
    fake::processors = {{11, 22, 33, 44}, {50, 60, 70, 85}};
    const auto [status, ticks] = counters.host();
    EXPECT_EQ(status, 0);
    EXPECT_THAT((std::array{ticks.user, ticks.system, ticks.idle, ticks.nice}), ElementsAre(1u, 2u, 3u, 4u));
    EXPECT_THAT(counters.processors(), Optional(ElementsAre(1, 2, 3, 4, 0, 0, 0, 5)));
}

TEST_F(MacCPUCountersTest, OutlivesTheKernelsWrap)
{
    fake::host = {0xFFFFFFF0, 0, 0xFFFFFFFF, 0};
    fake::processors = {{0, 0, 0x7FFFFFFF, 0}};
    MacCPUCounters counters;
    fake::host = {0x10, 0, 1, 0};
    fake::processors = {{0, 0, 0x80000005, 0}};
    EXPECT_EQ(counters.host().ticks.user, 0x20u);
    EXPECT_EQ(counters.host().ticks.idle, 2u);
    EXPECT_THAT(counters.processors(), Optional(ElementsAre(0, 0, 6, 0)));
}

TEST_F(MacCPUCountersTest, BeginsAgainLongBeforeAnOverflow)
{
    fake::processors = {{0, 0, 0, 0}};
    MacCPUCounters counters;
    for (std::uint32_t i = 1; i <= 40; ++i) {
        fake::processors = {fake::Ticks(4, i * 100'000'000)};
        const auto values = counters.processors();
        ASSERT_TRUE(values);
        EXPECT_LT(std::int64_t{(*values)[0]} + (*values)[1] + (*values)[2] + (*values)[3], 1 << 30);
    }
}

TEST_F(MacCPUCountersTest, StandsStillWhereACounterFell)
{
    fake::host = {100, 0, 0, 0};
    MacCPUCounters counters;
    fake::host = {90, 7, 0, 0};
    EXPECT_EQ(counters.host().ticks.user, 0u);
    fake::host = {95, 8, 0, 0};
    EXPECT_EQ(counters.host().ticks.user, 5u);
    EXPECT_EQ(counters.host().ticks.system, 8u);
}

TEST_F(MacCPUCountersTest, TellsFailures)
{
    MacCPUCounters counters;
    fake::hostStatus = 5;
    fake::processorStatus = 5;
    EXPECT_EQ(counters.host().status, 5);
    EXPECT_EQ(counters.processors(), std::nullopt);
}

TEST_F(MacCPUCountersTest, KeepsThePlaceOfAProcessorThatWentAway)
{
    fake::processors = {{0, 0, 0, 0}, {0, 0, 0, 0}};
    MacCPUCounters counters;
    fake::processors = {{1, 0, 0, 0}, {2, 0, 0, 0}};
    EXPECT_THAT(counters.processors(), Optional(ElementsAre(1, 0, 0, 0, 2, 0, 0, 0)));
    fake::processors = {{3, 0, 0, 0}};
    EXPECT_THAT(counters.processors(), Optional(ElementsAre(3, 0, 0, 0, 2, 0, 0, 0)));
}

class MacNetworkCountersTest : public MacAdapters
{
protected:
    std::pair<std::uint64_t, std::uint64_t> totals()
    {
        const auto bytes = m_counters.totals();
        return bytes ? std::pair(bytes->received, bytes->sent) : std::pair<std::uint64_t, std::uint64_t>(~0ull, ~0ull);
    }
    MacNetworkCounters m_counters;
};

TEST_F(MacNetworkCountersTest, SumsTheGrowthOfEveryLink)
{
    fake::interfaces = {{"lo0", 5, 6}, {"en0", 100, 200}};
    EXPECT_EQ(totals(), std::pair(0ul, 0ul));
    fake::interfaces = {{"lo0", 15, 26}, {"en0", 101, 200}};
    EXPECT_EQ(totals(), std::pair(11ul, 20ul));
}

TEST_F(MacNetworkCountersTest, GoesOnWhereA32BitCounterWraps)
{
    fake::interfaces = {{"en0", 0xFFFFFF00, 0xFFFFFFFF}};
    totals();
    for (std::uint64_t round = 1; round <= 3; ++round) {
        fake::interfaces = {{"en0", static_cast<std::uint32_t>(0xFFFFFF00 + round * 0xC0000000), 0}};
        EXPECT_EQ(totals(), std::pair(round * 0xC0000000, 1ul));
    }
}

TEST_F(MacNetworkCountersTest, CountsAnInterfaceThatComesBackFromThen)
{
    fake::interfaces = {{"en0", 0, 0}, {"utun1", 1000, 1000}};
    totals();
    fake::interfaces = {{"en0", 7, 0}};
    EXPECT_EQ(totals(), std::pair(7ul, 0ul));
    fake::interfaces = {{"en0", 7, 0}, {"utun1", 10, 10}};
    EXPECT_EQ(totals(), std::pair(7ul, 0ul));
    fake::interfaces = {{"en0", 7, 0}, {"utun1", 13, 10}};
    EXPECT_EQ(totals(), std::pair(10ul, 0ul));
}

TEST_F(MacNetworkCountersTest, PassesOverWhatIsNoLink)
{
    fake::interfaces = {{"en0", 1, 1, 2}, {"en1", 1, 1, 18, false}, {"en2", 1, 1, 18, true, false}};
    totals();
    fake::interfaces = {{"en0", 9, 9, 2}, {"en1", 9, 9, 18, false}, {"en2", 9, 9, 18, true, false}};
    EXPECT_EQ(totals(), std::pair(0ul, 0ul));
    fake::refuseInterfaces = true;
    EXPECT_EQ(m_counters.totals().has_value(), false);
}

using MacUserDefaultsTest = MacAdapters;

TEST_F(MacUserDefaultsTest, KeepsEachTypeUnderTheKeyAsItIs)
{
    MacUserDefaults defaults;
    const Instant date(std::chrono::seconds(1'600'000'000));
    const std::map<std::string, DefaultsValue> values{
        {"a.bool", true},    {"a.other", false},      {"a.integer", std::int64_t{-20}},
        {"a.fraction", 0.5}, {"a.text", "Sakura ß"s}, {"a.data", DefaultsData{"[\0]"s}},
        {"a.date", date}};
    for (const auto& [key, value] : values) {
        defaults.set(key, value);
        EXPECT_TRUE(fake::preferences.contains(key));
        EXPECT_EQ(defaults.object(key), value) << key;
    }
    EXPECT_EQ(fake::synchronized, static_cast<int>(values.size()));
    EXPECT_EQ(std::get<fake::Date>(fake::preferences["a.date"]).seconds, 1'600'000'000.0 - 978'307'200);
}

TEST_F(MacUserDefaultsTest, TellsABooleanFromANumberAndAFractionFromAnInteger)
{
    MacUserDefaults defaults;
    fake::preferences = {{"one", std::int64_t{1}}, {"yes", true}, {"float", 1.0}};
    EXPECT_EQ(defaults.object("one"), DefaultsValue(std::int64_t{1}));
    EXPECT_EQ(defaults.object("yes"), DefaultsValue(true));
    EXPECT_EQ(defaults.object("float"), DefaultsValue(1.0));
}

TEST_F(MacUserDefaultsTest, KnowsNothingOfWhatItCannotRead)
{
    MacUserDefaults defaults;
    fake::preferences = {{"list", fake::List{}},     {"table", fake::Table{}},     {"nan", std::nan("")},
                         {"end", fake::Date{1e300}}, {"begin", fake::Date{-1e14}}, {"never", fake::Date{std::nan("")}}};
    for (const auto* key : {"list", "table", "nan", "end", "begin", "never", "nothing"})
        EXPECT_EQ(defaults.object(key), std::nullopt) << key;
}

TEST_F(MacUserDefaultsTest, StoresNothingInPlaceOfWhatCannotBeMade)
{
    MacUserDefaults defaults;
    defaults.set("text", "good"s);
    fake::noMemory = true;
    defaults.set("text", "lost"s);
    EXPECT_EQ(defaults.object("text"), std::nullopt);
    fake::noMemory = false;
    EXPECT_EQ(defaults.object("text"), DefaultsValue("good"s));
    defaults.set("text", "bad \xFF"s);
    EXPECT_EQ(defaults.object("text"), DefaultsValue("bad \uFFFD"s));
}

using MacUserLocaleTest = MacAdapters;

TEST_F(MacUserLocaleTest, DatesFollowTheRegionAndSortingTheLanguage)
{
    const MacUserLocale locale;
    fake::locale = "en_AT@calendar=gregorian";
    EXPECT_EQ(locale.dates(), "en_AT@calendar=gregorian");
    fake::languages = fake::list({"zh-Hant-TW", "en"});
    EXPECT_EQ(locale.collation(), "zh_Hant_TW");
    EXPECT_EQ(locale.collation(), "en_AT@calendar=gregorian"); // no list at all
    fake::languages = fake::list({});
    EXPECT_EQ(locale.collation(), "en_AT@calendar=gregorian");
    fake::languages = fake::make(std::string("de"));
    EXPECT_EQ(locale.collation(), "en_AT@calendar=gregorian");
}

using MacCameraTest = MacAdapters;

TEST_F(MacCameraTest, IsInUseWhenAnyServiceSaysTrue)
{
    EXPECT_FALSE(isAnyUSBCameraActive());
    fake::registry = {false, fake::Value(), std::int64_t{1}, "true"s};
    EXPECT_FALSE(isAnyUSBCameraActive());
    fake::registry = {false, true, false};
    EXPECT_TRUE(isAnyUSBCameraActive());
    fake::registryStatus = 5;
    EXPECT_FALSE(isAnyUSBCameraActive());
}

using MacMicrophoneTest = MacAdapters;

TEST_F(MacMicrophoneTest, IsInUseWhenADeviceWithAnInputRuns)
{
    EXPECT_FALSE(isAnyInputDeviceRunning());
    fake::devices = {{0, 1}, {8, 0}};
    EXPECT_FALSE(isAnyInputDeviceRunning());
    fake::devices = {{0, 1}, {8, 0}, {4, 1}};
    EXPECT_TRUE(isAnyInputDeviceRunning());
    fake::devicesGone = 1;
    EXPECT_FALSE(isAnyInputDeviceRunning());
}

TEST_F(MacMicrophoneTest, TakesWhatCannotBeAskedForUnused)
{
    fake::devices = {{4, 1, 5, 0}, {4, 1, 0, 5}};
    EXPECT_FALSE(isAnyInputDeviceRunning());
    fake::devices = {{4, 1}};
    fake::devicesSizeStatus = 5;
    EXPECT_FALSE(isAnyInputDeviceRunning());
    fake::devicesSizeStatus = 0;
    fake::devicesReadStatus = 5;
    EXPECT_FALSE(isAnyInputDeviceRunning());
}

class MacFolderWatcherTest : public MacAdapters
{
protected:
    MacFolderWatcherTest() { std::filesystem::create_directories(m_folder); }
    ~MacFolderWatcherTest() override
    {
        EXPECT_EQ(openDescriptors(), m_before);
        std::filesystem::remove_all(m_folder);
    }

    const std::string m_folder =
        std::filesystem::temp_directory_path() / ("orrinvale-watched-" + std::to_string(::getpid()));
    const std::ptrdiff_t m_before = openDescriptors();
    MacFolderWatcher m_watcher;
};

TEST_F(MacFolderWatcherTest, TellsOfEventsUntilTheTokenIsDropped)
{
    int calls = 0;
    auto token = m_watcher.watch(m_folder, [&] { ++calls; });
    ASSERT_TRUE(token);
    fake::happen(DISPATCH_VNODE_WRITE);
    fake::happen(DISPATCH_VNODE_RENAME);
    fake::happen(DISPATCH_VNODE_DELETE);
    EXPECT_EQ(calls, 3);
    fake::happen(0x4); // the folder grew
    EXPECT_EQ(calls, 3);
    token.cancel();
    fake::happen(DISPATCH_VNODE_WRITE);
    EXPECT_EQ(calls, 3);
}

TEST_F(MacFolderWatcherTest, MayBeStoppedFromItsOwnCall)
{
    Cancellable token;
    int calls = 0;
    token = m_watcher.watch(m_folder, [&] {
        ++calls;
        token.cancel();
    });
    fake::happen(DISPATCH_VNODE_WRITE);
    fake::happen(DISPATCH_VNODE_WRITE);
    EXPECT_EQ(calls, 1);
}

TEST_F(MacFolderWatcherTest, RefusesWhatIsNoFolder)
{
    std::ofstream(m_folder + "/file") << "text";
    EXPECT_FALSE(m_watcher.watch(m_folder + "/none", [] {}));
    EXPECT_FALSE(m_watcher.watch(m_folder + "/file", [] {}));
    fake::refuseSources = true;
    EXPECT_FALSE(m_watcher.watch(m_folder, [] {}));
}

TEST_F(MacFolderWatcherTest, OutlivesItsMaker)
{
    auto watcher = std::make_optional<MacFolderWatcher>();
    int calls = 0;
    auto token = watcher->watch(m_folder, [&] { ++calls; });
    watcher.reset();
    fake::happen(DISPATCH_VNODE_WRITE);
    EXPECT_EQ(calls, 1);
    token.cancel();
    fake::runQueues();
}

TEST_F(MacFolderWatcherTest, ListsWithoutHiddenEntries)
{
    for (const auto* name : {"/a.part", "/.dotted.part", "/flagged.part"})
        std::ofstream(m_folder + name) << "text";
    ::chmod((m_folder + "/flagged.part").c_str(), 0600 | UF_HIDDEN);
    std::filesystem::create_directory(m_folder + "/b.download");
    std::filesystem::create_symlink("nowhere", m_folder + "/dead.part");
    const auto entries = m_watcher.entries(m_folder);
    ASSERT_TRUE(entries);
    EXPECT_THAT(*entries,
                UnorderedElementsAre(Field(&FolderEntry::name, "a.part"), Field(&FolderEntry::name, "b.download")));
    EXPECT_LT(Instant::clock::now() - (*entries)[0].modified, std::chrono::minutes(1));
    EXPECT_FALSE(m_watcher.entries(m_folder + "/none"));
}

TEST_F(MacFolderWatcherTest, TellsDatesBeyondTheClocksEnds)
{
    const auto end = std::numeric_limits<std::int64_t>::max();
    EXPECT_GT(instantOf({end, 999'999'999}), Instant(std::chrono::hours(24 * 365 * 250)));
    EXPECT_LT(instantOf({-end, 0}), Instant(-std::chrono::hours(24 * 365 * 250)));
    EXPECT_EQ(instantOf({1, 5'000'000}), Instant(std::chrono::milliseconds(1005)));
}
