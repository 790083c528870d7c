// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PopoverLayout.h"

#include "tests/interface/InterfaceFixture.h"

namespace orrinvale
{

namespace
{

// How many lines each text takes, and how high the blocks are.
struct Texts {
    int titleLines = 1;
    int subtitleLines = 1;
    int taglineLines = 1;
    int toggle = 36;
    int card = 76;
    int row = 56;
};

PopoverLayout layoutOf(double scale, const Texts& texts)
{
    const auto lines = [](int count) { return [count](int, int lineHeight) { return count * lineHeight; }; };
    const auto fixed = [](int height) { return [height](int) { return height; }; };
    return PopoverLayout::of(scale, {lines(texts.titleLines),
                                     lines(texts.subtitleLines),
                                     lines(texts.taglineLines),
                                     fixed(texts.toggle),
                                     fixed(texts.card),
                                     {fixed(texts.row), fixed(texts.row), fixed(texts.row)}});
}

std::vector<QRect> fromTheTopDown(const PopoverLayout& layout)
{
    return {layout.productWord, layout.title, layout.subtitle, layout.illustration, layout.tagline,
            layout.toggleTrack, layout.card,  layout.rows[0],  layout.rows[1],      layout.rows[2]};
}

void expectInOrderAndInside(const PopoverLayout& layout)
{
    auto bottom = PopoverLayout::margin;
    for (const auto& rect : fromTheTopDown(layout)) {
        EXPECT_GE(rect.top(), bottom);
        EXPECT_GE(rect.left(), PopoverLayout::margin);
        EXPECT_LE(rect.right() + 1, PopoverLayout::width - PopoverLayout::margin);
        EXPECT_GT(rect.height(), 0);
        bottom = rect.bottom() + 1;
    }
    EXPECT_EQ(layout.totalHeight, bottom + PopoverLayout::margin);
    EXPECT_FALSE(layout.productWord.intersects(layout.headerSymbol));
    EXPECT_FALSE(layout.dot.intersects(layout.subtitle));
    EXPECT_FALSE(layout.headerSymbol.intersects(layout.title));
}

TEST(PopoverLayout, IsOf340By700Pixels)
{
    EXPECT_EQ(PopoverLayout::width, 340);
    EXPECT_EQ(PopoverLayout::height, 700);
    EXPECT_EQ(PopoverLayout::contentWidth, 300);
    EXPECT_EQ(layoutOf(1, {}).totalHeight, 700);
}

TEST(PopoverLayout, StandsAsItWasDrawnAtAScaleOfOne)
{
    const auto layout = layoutOf(1, {});
    EXPECT_EQ(layout.productWord.topLeft(), QPoint(20, 20));
    EXPECT_EQ(layout.productWord.height(), 24);
    EXPECT_EQ(layout.headerSymbol, QRect(300, 22, 20, 20));
    EXPECT_EQ(layout.title, QRect(20, 64, 300, 24));
    EXPECT_EQ(layout.dot, QRect(20, 94, 8, 8));
    EXPECT_EQ(layout.subtitle, QRect(36, 88, 284, 20));
    EXPECT_EQ(layout.illustration, QRect(20, 124, 300, 200));
    EXPECT_EQ(layout.tagline, QRect(20, 332, 300, 16));
    EXPECT_EQ(layout.toggleTrack, QRect(20, 368, 300, 36));
    EXPECT_EQ(layout.card, QRect(20, 420, 300, 76));
    EXPECT_EQ(layout.rowGroup, QRect(20, 512, 300, 168));
    for (int n = 0; n < 3; ++n)
        EXPECT_EQ(layout.rows[n], QRect(20, 512 + 56 * n, 300, 56));
}

TEST(PopoverLayout, LinesGrowWithTheText)
{
    const PopoverLines usual(1);
    EXPECT_EQ(usual.productWord, 24);
    EXPECT_EQ(usual.title, 24);
    EXPECT_EQ(usual.subtitle, 20);
    EXPECT_EQ(usual.tagline, 16);
    const PopoverLines large(1.5);
    EXPECT_EQ(large.productWord, 36);
    EXPECT_EQ(large.title, 36);
    EXPECT_EQ(large.subtitle, 30);
    EXPECT_EQ(large.tagline, 24);
}

TEST(PopoverLayout, TextsAreMeasuredAtTheWidthThatTheyGet)
{
    std::vector<int> widths;
    const auto text = [&](int width, int lineHeight) {
        widths.push_back(width);
        return lineHeight;
    };
    const auto block = [&](int width) {
        widths.push_back(width);
        return 56;
    };
    PopoverLayout::of(1, {text, text, text, block, block, {block, block, block}});
    EXPECT_THAT(widths, ElementsAre(300, 284, 300, 300, 300, 300, 300, 300));
}

TEST(PopoverLayout, NothingOverlapsAtAnyScaleWithAnyTexts)
{
    for (const auto scale : {1.0, 1.1, 1.23, 1.25, 1.4, 1.5})
        for (const auto lines : {1, 2, 4}) {
            SCOPED_TRACE(testing::Message() << scale << " with " << lines << " lines");
            expectInOrderAndInside(
                layoutOf(scale, {lines, lines, lines, 36 + 8 * lines, 76 + 14 * lines, static_cast<int>(56 * scale)}));
        }
}

TEST(PopoverLayout, TheToggleIsAsHighAsItNeeds)
{
    const auto layout = layoutOf(1.5, {.toggle = 52});
    EXPECT_EQ(layout.toggleTrack.height(), 52);
    EXPECT_EQ(layout.card.top() - layout.toggleTrack.bottom() - 1, 16);
}

TEST(PopoverLayout, GapsShrinkWithLargerText)
{
    const auto layout = layoutOf(1.5, {});
    EXPECT_EQ(layout.title.top() - layout.productWord.bottom() - 1, 12);
    EXPECT_EQ(layout.illustration.top() - layout.subtitle.bottom() - 1, 12);
    EXPECT_EQ(layout.tagline.top() - layout.illustration.bottom() - 1, 8);
    EXPECT_EQ(layout.toggleTrack.top() - layout.tagline.bottom() - 1, 16);
}

TEST(PopoverLayout, ThePictureGivesUpHeightBeforeAnythingScrolls)
{
    const auto oneLineMore = layoutOf(1, {.titleLines = 2});
    EXPECT_EQ(oneLineMore.illustration.height(), 176);
    EXPECT_EQ(oneLineMore.totalHeight, 700);
    const auto allThatItHas = layoutOf(1, {.card = 116});
    EXPECT_EQ(allThatItHas.illustration.height(), 160);
    EXPECT_EQ(allThatItHas.totalHeight, 700);
}

TEST(PopoverLayout, WhatThePictureCannotGiveMakesItHigher)
{
    const auto layout = layoutOf(1, {.card = 126});
    EXPECT_EQ(layout.illustration.height(), 160);
    EXPECT_EQ(layout.totalHeight, 710);
}

} // namespace

} // namespace orrinvale
