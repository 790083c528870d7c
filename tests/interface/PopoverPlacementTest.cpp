// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PopoverPlacement.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

constexpr QSize popover(340, 700);
constexpr QRect screen(0, 0, 1920, 1080);
constexpr QRect belowPanel(0, 30, 1920, 1050); // what a panel of 30 at the top leaves
constexpr QRect abovePanel(0, 0, 1920, 1050);

QPoint byIcon(const QRect& icon, const QRect& available, const QRect& on = screen, const QSize& size = popover)
{
    return popoverPosition({icon, QPoint(5, 5)}, size, on, available);
}
QPoint byPointer(const QPoint& pointer, const QRect& available)
{
    return popoverPosition({{}, pointer}, popover, screen, available);
}
QPoint byPanel(const QRect& available)
{
    return popoverPosition({}, popover, screen, available);
}

TEST(PopoverPlacement, HangsCentredBelowAnIconAtTheTop)
{
    EXPECT_EQ(byIcon({1000, 4, 22, 22}, belowPanel), QPoint(1010 - 170, 30));
    EXPECT_EQ(byIcon({1000, 4, 22, 40}, belowPanel), QPoint(1010 - 170, 48)) << "4 pixels below a higher icon";
}

TEST(PopoverPlacement, StandsAboveAnIconAtTheBottom)
{
    EXPECT_EQ(byIcon({1000, 1040, 22, 22}, abovePanel), QPoint(1010 - 170, 1040 - 4 - 700));
}

TEST(PopoverPlacement, TheIconCountsMoreThanThePointer)
{
    EXPECT_NE(byIcon({1000, 4, 22, 22}, belowPanel), byPointer({5, 5}, belowPanel));
}

TEST(PopoverPlacement, StaysOnTheScreenAtEveryEdge)
{
    for (const auto& icon : {QRect(0, 4, 22, 22), QRect(1898, 4, 22, 22), QRect(0, 1058, 22, 22),
                             QRect(1898, 1058, 22, 22), QRect(0, 540, 22, 22), QRect(1898, 540, 22, 22)})
        for (const auto& available : {belowPanel, abovePanel, QRect(40, 0, 1880, 1080), QRect(0, 0, 1880, 1080)})
            EXPECT_TRUE(available.contains(QRect(byIcon(icon, available), popover)))
                << testing::PrintToString(icon) << testing::PrintToString(available);
}

TEST(PopoverPlacement, KeepsEightOffTheSidesOfTheScreenWhereThereIsRoomForIt)
{
    for (const auto x : {0, 100, 1800, 1898}) {
        const auto place = byIcon({x, 1054, 22, 22}, abovePanel);
        EXPECT_GE(place.x(), 8);
        EXPECT_LE(place.x() + 340, 1920 - 8);
    }
    const QRect narrow(0, 0, 348, 708);
    EXPECT_EQ(byIcon({320, 0, 22, 2}, narrow, narrow), QPoint(4, 6));
}

TEST(PopoverPlacement, StaysOnTheScreenOfTheIcon)
{
    const QRect right(1920, 200, 1280, 1024);
    const QRect available(1920, 230, 1280, 994);
    EXPECT_EQ(byIcon({3170, 204, 22, 22}, available, right), QPoint(3200 - 8 - 340, 230));
    EXPECT_EQ(byIcon({1922, 204, 22, 22}, available, right), QPoint(1928, 230));
    const QRect left(-1280, 0, 1280, 1024);
    EXPECT_EQ(byIcon({-1270, 4, 22, 22}, left, left), QPoint(-1272, 30));
}

TEST(PopoverPlacement, WhatDoesNotFitShowsItsTopAndItsLeft)
{
    const QRect small(0, 0, 300, 600);
    EXPECT_EQ(byIcon({270, 4, 22, 22}, small, small), QPoint(0, 0));
}

TEST(PopoverPlacement, WithoutAnIconThePointerTells)
{
    EXPECT_EQ(byPointer({1000, 15}, belowPanel), QPoint(1000 - 170, 30));
    EXPECT_EQ(byPointer({1000, 1070}, abovePanel), QPoint(1000 - 170, 350));
    EXPECT_EQ(byPointer({0, 0}, belowPanel), QPoint(8, 30));
    EXPECT_EQ(byPointer({1919, 1079}, abovePanel), QPoint(1572, 350));
}

TEST(PopoverPlacement, WithNeitherItStandsInTheCornerByThePanel)
{
    EXPECT_EQ(byPanel(belowPanel), QPoint(1920 - 8 - 340, 38)) << "a panel at the top";
    EXPECT_EQ(byPanel(abovePanel), QPoint(1920 - 8 - 340, 1050 - 8 - 700)) << "a panel at the bottom";
    EXPECT_EQ(byPanel({40, 0, 1880, 1080}), QPoint(48, 8)) << "a panel on the left";
    EXPECT_EQ(byPanel({0, 0, 1880, 1080}), QPoint(1880 - 8 - 340, 8)) << "a panel on the right";
    EXPECT_EQ(byPanel(screen), QPoint(1920 - 8 - 340, 8)) << "no panel";
}

TEST(PopoverHeight, IsThatOfTheContentUpToItsMostAndToTheRoomOnTheScreen)
{
    EXPECT_EQ(popoverHeight(700, 1080), 700);
    EXPECT_EQ(popoverHeight(640, 1080), 640);
    EXPECT_EQ(popoverHeight(900, 1080), 700);
    EXPECT_EQ(popoverHeight(700, 716), 700) << "8 above and below";
    EXPECT_EQ(popoverHeight(700, 600), 584);
    EXPECT_EQ(popoverHeight(900, 600), 584);
}

LayerPlacement inLayer(const StatusItemAnchor& anchor, int availableHeight = 1050, const QRect& on = screen)
{
    return popoverLayerPlacement(anchor, popover.height(), {on, on, {on.width(), availableHeight}});
}

// Of a desktop that tells of its panels: as windows of a kind of their own, or as layers.
LayerPlacement besidePanel(const StatusItemAnchor& anchor, const QRect& available, const QSize& withoutLayers)
{
    return popoverLayerPlacement(anchor, popover.height(), {screen, available, withoutLayers});
}

TEST(PopoverLayerPlacement, AKnownPanelsPlaceWinsOverTheClicks)
{
    const StatusItemAnchor high{{}, QPoint(1500, 1052)};
    const StatusItemAnchor low{{}, QPoint(1500, 1078)};
    const auto place = besidePanel(high, abovePanel, screen.size());
    EXPECT_EQ(besidePanel(low, abovePanel, screen.size()), place);
    EXPECT_EQ(place, (LayerPlacement{popover, Qt::BottomEdge | Qt::RightEdge, {0, 0, 420 - 170, 30 + 4}}));
    EXPECT_EQ(besidePanel(low, abovePanel, abovePanel.size()),
              (LayerPlacement{popover, Qt::BottomEdge | Qt::RightEdge, {0, 0, 420 - 170, 4}}))
        << "a layer's own margin is counted from the panel";
}

TEST(PopoverLayerPlacement, WithoutAClickItStandsByAKnownPanel)
{
    EXPECT_EQ(besidePanel({}, abovePanel, screen.size()),
              (LayerPlacement{popover, Qt::BottomEdge | Qt::RightEdge, {0, 0, 8, 30 + 8}}));
    EXPECT_EQ(besidePanel({}, {40, 0, 1880, 1080}, {1880, 1080}),
              (LayerPlacement{popover, Qt::TopEdge | Qt::LeftEdge, {8, 8, 0, 0}}));
}

TEST(PopoverInCorner, IsAtTheUpperRightAndNoHigherThanTheRoom)
{
    EXPECT_EQ(popoverInCorner(900, {0, 0, 1280, 768}), QRect(QPoint(1280 - 8 - 340, 8), QSize(340, 700)));
    EXPECT_EQ(popoverInCorner(900, {0, 0, 800, 500}), QRect(QPoint(800 - 8 - 340, 8), QSize(340, 484)));
}

TEST(PopoverLayerPlacement, IsTheUpperRightCornerWhereNoClickIsKnown)
{
    EXPECT_EQ(inLayer({}), (LayerPlacement{popover, Qt::TopEdge | Qt::RightEdge, {0, 8, 8, 0}}));
}

TEST(PopoverLayerPlacement, IsCentredBelowOrAboveTheClick)
{
    EXPECT_EQ(inLayer({{}, QPoint(1500, 12)}),
              (LayerPlacement{popover, Qt::TopEdge | Qt::RightEdge, {0, 4, 420 - 170, 0}}));
    EXPECT_EQ(inLayer({{}, QPoint(1500, 1070)}),
              (LayerPlacement{popover, Qt::BottomEdge | Qt::RightEdge, {0, 0, 420 - 170, 4}}));
    EXPECT_EQ(inLayer({{}, QPoint(400, 12)}),
              (LayerPlacement{popover, Qt::TopEdge | Qt::LeftEdge, {400 - 170, 4, 0, 0}}));
    EXPECT_EQ(inLayer({{}, QPoint(400, 1070)}),
              (LayerPlacement{popover, Qt::BottomEdge | Qt::LeftEdge, {400 - 170, 0, 0, 4}}));
}

TEST(PopoverLayerPlacement, KeepsAwayFromTheScreensEdge)
{
    EXPECT_EQ(inLayer({{}, QPoint(1910, 12)}).margins, QMargins(0, 4, 8, 0));
    EXPECT_EQ(inLayer({{}, QPoint(10, 500)}).margins, QMargins(8, 4, 0, 0));
}

TEST(PopoverLayerPlacement, KeepsClearOfAPanelThatReservesNothing)
{
    EXPECT_EQ(inLayer({{}, QPoint(1500, 1057)}, 1080).margins, QMargins(0, 0, 420 - 170, 22 + 16 + 4));
    EXPECT_EQ(inLayer({{}, QPoint(1500, 20)}, 1080).margins, QMargins(0, 20 + 16 + 4, 420 - 170, 0));
    const QRect low(0, 0, 1280, 720);
    EXPECT_EQ(inLayer({{}, QPoint(900, 697)}, 720, low).size.height(), 720 - (22 + 16) - 2 * 8);
}

TEST(PopoverLayerPlacement, IsNoHigherThanTheRoom)
{
    EXPECT_EQ(inLayer({}, 600).size, QSize(340, 584));
    EXPECT_EQ(inLayer({{}, QPoint(1500, 12)}, 600).size, QSize(340, 584));
}

TEST(PopoverLayerPlacement, CountsFromTheScreenOfTheClick)
{
    const QRect right(1920, 200, 1280, 1024);
    EXPECT_EQ(inLayer({{}, QPoint(1920 + 300, 1200)}, 1000, right),
              (LayerPlacement{popover, Qt::BottomEdge | Qt::LeftEdge, {300 - 170, 0, 0, 4}}));
}

} // namespace

} // namespace orrinvale
