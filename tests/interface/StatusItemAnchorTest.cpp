// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusItemAnchor.h"

#include <gtest/gtest.h>

namespace orrinvale
{

namespace
{

TEST(PlausibleClick, IsOneOnTheDesktopAndNotOneInTheIcon)
{
    const QRect desktop(0, 0, 3200, 1080);
    EXPECT_TRUE(isPlausibleClick({1800, 12}, desktop));
    EXPECT_TRUE(isPlausibleClick({12, 1070}, desktop)) << "at the foot of a panel on the left";
    EXPECT_FALSE(isPlausibleClick({9, 12}, desktop)) << "where in the icon it was";
    EXPECT_FALSE(isPlausibleClick({63, 63}, desktop)) << "in a large one";
    EXPECT_FALSE(isPlausibleClick({0, 0}, desktop));
    EXPECT_FALSE(isPlausibleClick({3200, 12}, desktop));
    EXPECT_FALSE(isPlausibleClick({-5, 500}, desktop));
}

TEST(PlausibleIcon, IsOneOnTheDesktop)
{
    const QRect desktop(0, 0, 3200, 1080);
    EXPECT_TRUE(isPlausibleIcon({1800, 2, 22, 22}, desktop));
    EXPECT_TRUE(isPlausibleIcon({0, 0, 24, 24}, desktop)) << "a real one in the corner";
    EXPECT_FALSE(isPlausibleIcon({0, 0, 22, 22}, desktop)) << "one that no tray has taken";
    EXPECT_FALSE(isPlausibleIcon({}, desktop));
    EXPECT_FALSE(isPlausibleIcon({100, 100, 0, 22}, desktop));
    EXPECT_FALSE(isPlausibleIcon({3300, 2, 22, 22}, desktop));
    EXPECT_FALSE(isPlausibleIcon({-40, 2, 22, 22}, desktop));
}

} // namespace

} // namespace orrinvale
