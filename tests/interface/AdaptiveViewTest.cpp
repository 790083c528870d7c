// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AdaptiveView.h"

#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

struct AdaptiveViewTest : InterfaceFixture {
    QColor colour = Qt::red;
    AdaptiveView view{[this] { return colour; }, nullptr};
};

TEST_F(AdaptiveViewTest, IsFilledWithTheColourThatItAsksFor)
{
    view.resize(20, 1);
    EXPECT_EQ(picture(view).pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(picture(view).pixelColor(19, 0), QColor(Qt::red));
}

TEST_F(AdaptiveViewTest, AsksAnewAtEveryPainting)
{
    view.resize(20, 1);
    picture(view);
    colour = Qt::blue;
    EXPECT_EQ(picture(view).pixelColor(10, 0), QColor(Qt::blue));
}

TEST_F(AdaptiveViewTest, LeavesTheMouseToWhatLiesBelow)
{
    EXPECT_TRUE(view.testAttribute(Qt::WA_TransparentForMouseEvents));
}

} // namespace

} // namespace orrinvale
