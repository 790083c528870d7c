// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/InstalledApp.h"

#include "platform/InstalledApplications.h"
#include "platform/RunningApplications.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orrinvale
{

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using Installed = std::vector<InstalledApplication>;
using Running = std::vector<RunningApplication>;

std::vector<std::string> names(const Installed& installed, const Running& running = {},
                               const std::string& locale = "en_US")
{
    std::vector<std::string> all;
    for (const auto& app : installedApps(installed, running, locale))
        all.push_back(app.name);
    return all;
}

TEST(InstalledApps, TheFirstOneFoundTakesTheIdentifier)
{
    EXPECT_THAT(installedApps({{"org.app", "System", "/system/app", "app"}, {"org.app", "Mine", "/home/app", "x"}},
                              {{"org.app", "Running", {}}}, "en_US"),
                ElementsAre(InstalledApp{"org.app", "System", "app", "/system/app"}));
}

TEST(InstalledApps, ARegularApplicationThatOnlyRunsHasNoPath)
{
    RunningApplication elsewhere{"org.elsewhere", "Elsewhere", "/opt/elsewhere"};
    elsewhere.iconName = "elsewhere";
    EXPECT_THAT(installedApps({{"org.app", "App", "/system/app", ""}}, {elsewhere}, "en_US"),
                ElementsAre(InstalledApp{"org.app", "App", std::nullopt, "/system/app"},
                            InstalledApp{"org.elsewhere", "Elsewhere", "elsewhere", ""}));
}

TEST(InstalledApps, AccessoriesAndTheNamelessAreLeftOut)
{
    EXPECT_THAT(
        names({{"", "No identifier", "/a", ""}},
              {{std::nullopt, "None", {}}, {"", "Empty", {}}, {"org.agent", "Agent", {}, ActivationPolicy::accessory}}),
        IsEmpty());
}

TEST(InstalledApps, ARunningApplicationWithoutANameIsCalledByItsIdentifier)
{
    EXPECT_THAT(names({}, {{"org.nameless", std::nullopt, {}}}), ElementsAre("org.nameless"));
}

TEST(InstalledApps, ARunningApplicationIsListedOnce)
{
    EXPECT_THAT(names({}, {{"org.twice", "First", {}}, {"org.twice", "Second", {}}}), ElementsAre("First"));
}

TEST(InstalledApps, AreOrderedByNameWithoutRegardToCase)
{
    EXPECT_THAT(names({{"1", "zebra", "", ""}, {"2", "Éclair", "", ""}, {"3", "apple", "", ""}, {"4", "Film", "", ""}},
                      {{"5", "Banana", {}}}),
                ElementsAre("apple", "Banana", "Éclair", "Film", "zebra"));
}

TEST(InstalledApps, FollowTheOrderOfTheLanguage)
{
    const Installed some{{"1", "Ärger", "", ""}, {"2", "Zeit", "", ""}};
    EXPECT_THAT(names(some, {}, "de_DE"), ElementsAre("Ärger", "Zeit"));
    EXPECT_THAT(names(some, {}, "sv_SE"), ElementsAre("Zeit", "Ärger"));
}

TEST(InstalledApps, EqualNamesKeepTheirOrder)
{
    Installed many;
    for (int i = 0; i < 40; ++i)
        many.push_back({std::to_string(i), i % 2 ? "same" : "SAME", "", ""});
    const auto apps = installedApps(many, {{"last", "Same", {}}}, "en_US");
    for (std::size_t i = 0; i < 40; ++i)
        EXPECT_EQ(apps[i].id, std::to_string(i));
    EXPECT_EQ(apps[40].id, "last");
}

} // namespace

} // namespace orrinvale
