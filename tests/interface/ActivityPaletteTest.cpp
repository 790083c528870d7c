// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityPalette.h"

#include "kit/Colours.h"
#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

QColor grey(double level)
{
    return tableColour(level, level, level);
}

struct ActivityColours {
    const char* name;
    bool isDark;
    bool isSakura;
    std::array<QColor, 5> levels;
    QColor ring;
    QColor bar;
    QColor appName;
    QColor appTime;
};
const auto greenRing = tableColour(0.18, 0.58, 0.30);
const auto greenBar = tableColour(0.63, 0.75, 0.58);
const auto pinkRing = tableColour(0.72, 0.32, 0.46);
const auto pinkBar = tableColour(0.87, 0.47, 0.60);
const auto sakuraName = tableColour(0.32, 0.18, 0.24);
const auto sakuraTime = tableColour(0.62, 0.44, 0.50);
const ActivityColours activityColours[] = {
    {"light",
     false,
     false,
     {tableColour(0.90, 0.89, 0.87), tableColour(0.82, 0.94, 0.84), tableColour(0.60, 0.86, 0.66),
      tableColour(0.30, 0.72, 0.44), tableColour(0.15, 0.58, 0.30)},
     greenRing,
     greenBar,
     grey(0.12),
     grey(0.45)},
    {"dark",
     true,
     false,
     {grey(0.22), tableColour(0.07, 0.28, 0.12), tableColour(0.10, 0.44, 0.18), tableColour(0.18, 0.60, 0.28),
      tableColour(0.29, 0.72, 0.42)},
     greenRing,
     greenBar,
     grey(0.88),
     grey(0.50)},
    {"sakura",
     false,
     true,
     {tableColour(0.91, 0.87, 0.88), tableColour(0.97, 0.87, 0.90), tableColour(0.95, 0.73, 0.80),
      tableColour(0.90, 0.55, 0.67), tableColour(0.83, 0.38, 0.53)},
     pinkRing,
     pinkBar,
     sakuraName,
     sakuraTime},
    {"sakuraDark",
     true,
     true,
     {grey(0.22), tableColour(0.35, 0.14, 0.22), tableColour(0.55, 0.20, 0.34), tableColour(0.75, 0.32, 0.48),
      tableColour(0.92, 0.45, 0.60)},
     pinkRing,
     pinkBar,
     sakuraName,
     sakuraTime},
};

struct ActivityPaletteTest : testing::TestWithParam<ActivityColours> {
};

TEST_P(ActivityPaletteTest, HasTheColoursOfItsFlags)
{
    const auto& expected = GetParam();
    const auto palette = ActivityPalette::of(expected.isDark, expected.isSakura);
    for (std::size_t level = 0; level < expected.levels.size(); ++level)
        EXPECT_EQ(bytes(palette.levels[level]), expected.levels[level]) << "level " << level;
    EXPECT_EQ(bytes(palette.selectionRing), expected.ring);
    EXPECT_EQ(bytes(palette.bar), expected.bar);
    EXPECT_EQ(bytes(palette.appName), expected.appName);
    EXPECT_EQ(bytes(palette.appTime), expected.appTime);
}

INSTANTIATE_TEST_SUITE_P(Flags, ActivityPaletteTest, testing::ValuesIn(activityColours),
                         [](const auto& each) { return each.param.name; });

TEST(ActivityPalette, LookIsSakuraBeforeItIsDark)
{
    EXPECT_EQ(lookOf(false, false), Look::light);
    EXPECT_EQ(lookOf(true, false), Look::dark);
    EXPECT_EQ(lookOf(false, true), Look::sakura);
    EXPECT_EQ(lookOf(true, true), Look::sakura);
}

} // namespace

} // namespace orrinvale
