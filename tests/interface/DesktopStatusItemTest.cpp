// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/DesktopStatusItem.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

struct DesktopStatusItemTest : InterfaceFixture {
    DesktopStatusItemTest()
    {
        item.onClick = [this] { ++clicks; };
    }

    DesktopStatusItem item{time};
    int clicks = 0;
};

TEST_F(DesktopStatusItemTest, AStormOfClicksIsOneClick)
{
    for (int i = 0; i < 6000; ++i) {
        item.clickAt({9, 9});
        time.advance(1ms);
    }
    EXPECT_EQ(clicks, 1);
    time.advance(100ms);
    item.clickAt({9, 9});
    EXPECT_EQ(clicks, 2);
}

TEST_F(DesktopStatusItemTest, TheClicksOfADoubleClickAreTwo)
{
    item.clickAt({9, 9});
    time.advance(80ms);
    item.clickAt({9, 9});
    EXPECT_EQ(clicks, 2);
}

TEST_F(DesktopStatusItemTest, ClicksThatWaitedWhileTheFirstWasAtWorkAreStillThatOne)
{
    item.onClick = [this] {
        ++clicks;
        time.advance(200ms);
    };
    item.clickAt({9, 9});
    item.clickAt({9, 9});
    EXPECT_EQ(clicks, 1);
}

TEST_F(DesktopStatusItemTest, NoTimerOutlivesTheLastClick)
{
    item.clickAt({9, 9});
    time.advance(100ms);
    EXPECT_EQ(time.timerCount(), 0u);
}

} // namespace

} // namespace orrinvale
