// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsTexts.h"

#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

struct SettingsTexts : LogicFixture {
    std::string thresholdsAt(double sensitivity)
    {
        settings().cpuSensitivity.set(sensitivity);
        return thresholdsText(settings().cpuBusyThreshold(), settings().cpuSingleCoreThreshold());
    }
};

TEST_F(SettingsTexts, TheThresholdsFollowTheSensitivity)
{
    EXPECT_EQ(thresholdsAt(0.5), "Load ≥ 40 % · Core ≥ 50 %");
    EXPECT_EQ(thresholdsAt(0), "Load ≥ 70 % · Core ≥ 85 %");
    EXPECT_EQ(thresholdsAt(1), "Load ≥ 15 % · Core ≥ 25 %");
    EXPECT_EQ(thresholdsAt(0.25), "Load ≥ 55 % · Core ≥ 68 %"); // 67.5
}

TEST_F(SettingsTexts, HalvesAreRoundedAwayFromZero)
{
    EXPECT_EQ(thresholdsText(62.5, 68.5), "Load ≥ 63 % · Core ≥ 69 %");
    EXPECT_EQ(thresholdsText(62.49, 68.51), "Load ≥ 62 % · Core ≥ 69 %");
}

TEST_F(SettingsTexts, TheLowBatterySubtitleBearsTheThreshold)
{
    EXPECT_EQ(lowBatterySubtitle(20), "Stops keeping the Mac awake below 20% while unplugged");
    EXPECT_EQ(lowBatterySubtitle(1234567), "Stops keeping the Mac awake below 1234567% while unplugged");
}

TEST_F(SettingsTexts, ATildeStandsForTheHomeFolderAlone)
{
    struct Row {
        const char* path;
        const char* home;
        const char* shown;
    };
    const Row rows[] = {
        {"/home/an/Downloads", "/home/an", "~/Downloads"},
        {"/home/an", "/home/an", "~"},
        {"/home/an/", "/home/an", "~/"},
        {"/home/an/a/b c", "/home/an/", "~/a/b c"},
        {"/home/anna", "/home/an", "/home/anna"},
        {"/home/anna/Downloads", "/home/an", "/home/anna/Downloads"},
        {"/srv/home/an/x", "/home/an", "/srv/home/an/x"},
        {"/tmp", "/", "/tmp"},
        {"/tmp", "", "/tmp"},
        {"", "/home/an", ""},
        {"~/x", "/home/an", "~/x"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(abbreviatedWithTilde(row.path, row.home), row.shown) << row.path << " in " << row.home;
}

} // namespace

} // namespace orrinvale
