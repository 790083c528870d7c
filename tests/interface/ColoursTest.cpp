// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/Colours.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

TEST(Colours, ComponentsAreOfTheFullScaleAndOpaque)
{
    EXPECT_EQ(bytes(rgb(0.29, 0.55, 0.22)), QColor(0x4a, 0x8c, 0x38));
    EXPECT_EQ(bytes(white(0.88)), QColor(0xe0, 0xe0, 0xe0));
    EXPECT_EQ(bytes(withAlpha(Qt::red, 0.35)), QColor(255, 0, 0, 89));
}

TEST(Colours, BlendingPaintsOverTheGround)
{
    EXPECT_EQ(bytes(blended(Qt::white, withAlpha(Qt::black, 0.5))).red(), 127);
    EXPECT_EQ(bytes(blended(Qt::white, Qt::red)), QColor(Qt::red));
    EXPECT_EQ(bytes(blended(Qt::white, Qt::transparent)), QColor(Qt::white));
}

TEST(Colours, ContrastGoesFromOneToTwentyOneEitherWay)
{
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::red, Qt::red), 1, 0.01);
    EXPECT_NEAR(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

} // namespace

} // namespace orrinvale
