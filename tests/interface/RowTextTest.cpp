// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/RowText.h"

#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

const auto wordy = QStringLiteral("A subtitle that is so long that it needs more than one line at this width");

struct RowTextTest : InterfaceFixture {
    void show(RowText& text, int width)
    {
        text.applyTheme(WindowPalette::of(Look::light));
        text.resize(width, text.heightFor(width));
        text.show();
    }
    RowText usual{QStringLiteral("BATTERY & SAFETY"), QStringLiteral("Below it"), nullptr};
    RowText wrapping{QStringLiteral("Title"), wordy, nullptr};
    RowText cut{QStringLiteral("Title"), wordy, nullptr, Qt::ElideMiddle};
};

TEST_F(RowTextTest, StandsInTwoLines)
{
    show(usual, 300);
    EXPECT_EQ(usual.heightFor(300), 33);
    EXPECT_EQ(usual.titleLabel().geometry(), QRect(0, 0, 300, 18));
    EXPECT_EQ(usual.subtitleLabel().geometry(), QRect(0, 18, 300, 15));
    EXPECT_EQ(usual.titleLabel().text(), QStringLiteral("BATTERY & SAFETY"));
    EXPECT_EQ(usual.titleLabel().textFormat(), Qt::PlainText);
}

TEST_F(RowTextTest, TextsHaveTheirSizesAndColours)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        usual.applyTheme(colours);
        expectText(usual.titleLabel(), {13, QFont::Normal}, colours.primaryText);
        expectText(usual.subtitleLabel(), {11, QFont::Normal}, colours.quietText);
    }
}

TEST_F(RowTextTest, ALongSubtitleWraps)
{
    show(wrapping, 220);
    EXPECT_EQ(wrapping.heightFor(220), 18 + 2 * 15);
    expectWhole(wrapping.subtitleLabel(), 15);
    EXPECT_EQ(wrapping.subtitleLabel().toolTip(), QString());
}

TEST_F(RowTextTest, OrIsCutInTheMiddleWithTheWholeInItsTooltip)
{
    show(cut, 220);
    EXPECT_EQ(cut.heightFor(220), 33);
    EXPECT_EQ(cut.subtitleLabel().toolTip(), plainToolTip(wordy));
    EXPECT_FALSE(cut.subtitleLabel().testAttribute(Qt::WA_TransparentForMouseEvents));
    show(cut, 900);
    EXPECT_EQ(cut.subtitleLabel().toolTip(), QString());
}

TEST_F(RowTextTest, ANewSubtitleTakesItsPlace)
{
    show(usual, 220);
    usual.setSubtitle(wordy);
    EXPECT_EQ(usual.heightFor(220), 48);
    EXPECT_EQ(usual.subtitleLabel().text(), wordy);
    EXPECT_EQ(usual.subtitleLabel().height(), 30);
}

TEST_F(RowTextTest, GrowsWithTheText)
{
    const LargerText larger(1.5);
    show(wrapping, 220);
    expectWhole(wrapping.titleLabel(), 27);
    expectWhole(wrapping.subtitleLabel(), 23);
    EXPECT_GE(wrapping.subtitleLabel().y(), wrapping.titleLabel().geometry().bottom() + 1);
    EXPECT_EQ(wrapping.subtitleLabel().geometry().bottom() + 1, wrapping.height());
}

} // namespace

} // namespace orrinvale
