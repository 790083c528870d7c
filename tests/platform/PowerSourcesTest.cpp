// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerSources.h"

#include "base/ThreadSerialQueue.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <filesystem>
#include <fstream>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace
{

void bed(const QStringList& arguments)
{
    ASSERT_EQ(QProcess::execute(qEnvironmentVariable("BED_TOOL"), arguments), 0);
}

struct PowerSourcesTest : testing::Test {
    bool reports(const char* state, std::int64_t capacity)
    {
        return waitFor([&] {
            const auto source = sources.first();
            return source && source->state == state && source->currentCapacity == capacity;
        });
    }

    QtMainQueue queue;
    ThreadSerialQueue background{queue, "test"};
    LinuxPowerSources sources{QDBusConnection::systemBus(), queue, background, "/nonexistent"};
};

// One story, in order: the bed has one battery.
TEST_F(PowerSourcesTest, FollowsARealUPower)
{
    sources.prime(QDeadlineTimer(1s));
    const auto source = sources.first();
    ASSERT_TRUE(source);
    EXPECT_EQ(source->state, "Battery Power");
    EXPECT_EQ(source->currentCapacity, 5700);
    EXPECT_EQ(source->maximumCapacity, 10000);
    bed({QStringLiteral("battery"), QStringLiteral("bat 20 Discharging")});
    EXPECT_TRUE(reports("Battery Power", 2000));
    bed({QStringLiteral("battery"), QStringLiteral("ac 1")});
    bed({QStringLiteral("battery"), QStringLiteral("bat 21 Charging")});
    EXPECT_TRUE(reports("AC Power", 2100));
    bed({QStringLiteral("battery"), QStringLiteral("nobat")});
    EXPECT_TRUE(waitFor([&] { return !sources.first(); }));
    bed({QStringLiteral("restart"), QStringLiteral("upower")});
    EXPECT_TRUE(waitFor([&] { return sources.first().has_value(); }));
    EXPECT_TRUE(reports("Battery Power", 5700));
}

struct SysfsTest : testing::Test {
    void device(const std::string& name, const std::vector<std::pair<std::string, std::string>>& attributes)
    {
        fs::create_directory(folder / name);
        for (const auto& [key, value] : attributes)
            std::ofstream(folder / name / key) << value << '\n';
    }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
};

TEST_F(SysfsTest, ADischargingBatteryIsBatteryPower)
{
    device("BAT0", {{"type", "Battery"}, {"status", "Discharging"}, {"capacity", "19"}});
    device("AC", {{"type", "Mains"}, {"online", "0"}});
    const auto source = powerSourceFromSysfs(folder);
    ASSERT_TRUE(source);
    EXPECT_EQ(source->state, "Battery Power");
    EXPECT_EQ(source->currentCapacity, 1900);
}

TEST_F(SysfsTest, MainsOnlineIsExternalPower)
{
    device("BAT0", {{"type", "Battery"}, {"status", "Discharging"}, {"capacity", "19"}});
    device("AC", {{"type", "Mains"}, {"online", "1"}});
    EXPECT_EQ(powerSourceFromSysfs(folder)->state, "AC Power");
}

struct Told {
    const char* status;
    const char* online; // of the adapter; empty where there is none
    const char* state;
};

TEST_F(SysfsTest, ABatteryThatIsNeitherChargedNorDrainedLeavesItToTheAdapters)
{
    for (const auto& row :
         {Told{"Not charging", "0", "Battery Power"}, Told{"Unknown", "0", "Battery Power"},
          Told{"Full", "0", "Battery Power"}, Told{"Not charging", "1", "AC Power"}, Told{"Unknown", "", "AC Power"},
          Told{"Full", "", "AC Power"}, Told{"Charging", "0", "AC Power"}, Told{"Discharging", "", "Battery Power"}}) {
        SCOPED_TRACE(std::string(row.status) + ' ' + row.online);
        device("BAT0", {{"type", "Battery"}, {"status", row.status}, {"capacity", "50"}});
        if (*row.online)
            device("AC", {{"type", "Mains"}, {"online", row.online}});
        EXPECT_EQ(powerSourceFromSysfs(folder)->state, row.state);
        fs::remove_all(folder / "AC");
    }
}

TEST_F(SysfsTest, TheBatteryOfAMouseIsNotTheMachines)
{
    device("mouse", {{"type", "Battery"}, {"scope", "Device"}, {"status", "Discharging"}, {"capacity", "5"}});
    EXPECT_EQ(powerSourceFromSysfs(folder), std::nullopt);
}

TEST_F(SysfsTest, NothingToReadIsNothing)
{
    EXPECT_EQ(powerSourceFromSysfs(folder), std::nullopt);
    EXPECT_EQ(powerSourceFromSysfs(folder / "missing"), std::nullopt);
}

TEST_F(SysfsTest, ANonsensicalCapacityIsAbsent)
{
    for (const auto* capacity : {"full", "-1", "101", "9223372036854775807", "99999999999999999999", ""}) {
        device("BAT0", {{"type", "Battery"}, {"status", "Discharging"}, {"capacity", capacity}});
        EXPECT_EQ(powerSourceFromSysfs(folder)->currentCapacity, std::nullopt) << capacity;
    }
}

} // namespace

} // namespace orrinvale
