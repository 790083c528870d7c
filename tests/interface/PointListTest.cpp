// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PointList.h"

#include "kit/Symbols.h"
#include "orrinvale/OnboardingView.h"
#include "tests/interface/WindowFixture.h"

#include <QPainter>

namespace orrinvale
{

namespace
{

struct PointListTest : InterfaceFixture {
    PointListTest() { show(400); }
    void show(int width)
    {
        list.applyTheme(WindowPalette::of(Look::light));
        list.resize(width, list.heightFor(width));
        list.show();
    }
    PointList list{OnboardingView::points(), nullptr};
};

TEST_F(PointListTest, ShowsTitleAndBodyOfEachPoint)
{
    ASSERT_EQ(list.labels().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(list.labels()[i].title->text(), OnboardingView::points()[i].title);
        EXPECT_EQ(list.labels()[i].body->text(), OnboardingView::points()[i].body);
        EXPECT_EQ(list.labels()[i].title->textFormat(), Qt::PlainText);
    }
}

TEST_F(PointListTest, StandsAsItWasDrawn)
{
    int top = 0;
    for (const auto& labels : list.labels()) {
        EXPECT_EQ(labels.title->geometry(), QRect(56, top, 344, 18));
        const auto body = labels.body->heightFor(344, 17);
        EXPECT_GE(body, 3 * 17);
        EXPECT_EQ(labels.body->geometry(), QRect(56, top + 20, 344, body));
        top += 20 + body + 28;
    }
    EXPECT_EQ(list.height(), top - 28);
}

TEST_F(PointListTest, TextsHaveTheirSizesWeightsAndColours)
{
    for (const auto look : allLooks) {
        list.applyTheme(WindowPalette::of(look));
        for (const auto& labels : list.labels()) {
            expectText(*labels.title, {13, QFont::DemiBold}, WindowPalette::of(look).primaryText);
            expectText(*labels.body, {12, QFont::Normal}, WindowPalette::of(look).quietText);
        }
    }
}

TEST_F(PointListTest, EachPointsSymbolIsOnItsBadge)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        list.applyTheme(colours);
        const auto image = picture(list);
        for (std::size_t i = 0; i < 3; ++i) {
            const auto top = list.labels()[i].title->y();
            EXPECT_TRUE(isNearly(image.pixelColor(20, top), colours.symbolWash)) << i;
            EXPECT_TRUE(isNearly(image.pixelColor(0, top + 20), colours.symbolWash)) << i;
            EXPECT_TRUE(isNearly(image.pixelColor(39, top + 20), colours.symbolWash)) << i;
            EXPECT_FALSE(isNearly(image.pixelColor(40, top + 20), colours.symbolWash)) << i;
            EXPECT_FALSE(isNearly(image.pixelColor(0, top), colours.symbolWash)) << i; // round
            QImage expected(40, 40, QImage::Format_ARGB32);
            expected.fill(colours.symbolWash);
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::Antialiasing);
            paintSymbol(painter, OnboardingView::points()[i].icon, QRectF(9, 9, 22, 22), colours.symbol);
            painter.end();
            for (int y = 9; y < 31; ++y)
                for (int x = 9; x < 31; ++x)
                    EXPECT_TRUE(isNearly(image.pixelColor(x, top + y), expected.pixelColor(x, y), 4)) << i;
        }
    }
}

TEST_F(PointListTest, LargerTextIsWholeAndNothingOverlaps)
{
    const LargerText larger(1.5);
    show(400);
    int bottom = -1;
    for (const auto& labels : list.labels()) {
        expectWhole(*labels.title, 27);
        expectWhole(*labels.body, 26);
        EXPECT_GT(labels.title->y(), bottom);
        EXPECT_GT(labels.body->y(), labels.title->geometry().bottom());
        bottom = labels.body->geometry().bottom();
    }
    EXPECT_LE(bottom, list.height());
}

} // namespace

} // namespace orrinvale
