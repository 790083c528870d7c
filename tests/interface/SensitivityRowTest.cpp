// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SensitivityRow.h"

#include "kit/ContinuousSlider.h"
#include "kit/FocusRing.h"
#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

struct SensitivityRowTest : InterfaceFixture {
    SensitivityRowTest()
    {
        row.applyTheme(WindowPalette::of(Look::light));
        row.resize(498, row.heightFor(498));
        row.show();
    }
    SensitivityRow row{nullptr};
};

TEST_F(SensitivityRowTest, HasAWordUnderEachEnd)
{
    EXPECT_EQ(row.lowLabel().text(), QStringLiteral("Relaxed"));
    EXPECT_EQ(row.highLabel().text(), QStringLiteral("Sensitive"));
    EXPECT_TRUE(row.highLabel().alignment() & Qt::AlignRight);
    EXPECT_EQ(row.slider().accessibleName(), QStringLiteral("CPU SENSITIVITY"));
}

TEST_F(SensitivityRowTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(row.height(), 16 + 20 + 4 + 14 + 12);
    EXPECT_EQ(shownRect(row.slider()).translated(row.slider().pos()), QRect(16, 16, 466, 20));
    EXPECT_EQ(row.lowLabel().geometry().topLeft(), QPoint(16, 40));
    EXPECT_EQ(row.lowLabel().height(), 14);
    EXPECT_EQ(row.highLabel().geometry().right() + 1, 482);
    EXPECT_EQ(row.highLabel().y(), 40);
}

TEST_F(SensitivityRowTest, WordsAreSmallAndQuiet)
{
    for (const auto look : allLooks) {
        row.applyTheme(WindowPalette::of(look));
        expectText(row.lowLabel(), {10, QFont::Normal}, WindowPalette::of(look).quietText);
        expectText(row.highLabel(), {10, QFont::Normal}, WindowPalette::of(look).quietText);
    }
}

TEST_F(SensitivityRowTest, LargerTextIsWhole)
{
    const LargerText larger(1.5);
    row.applyTheme(WindowPalette::of(Look::light));
    row.resize(418, row.heightFor(418));
    expectWhole(row.lowLabel(), 21);
    expectWhole(row.highLabel(), 21);
    EXPECT_EQ(row.height(), 16 + 20 + 4 + 21 + 12);
    EXPECT_LT(row.lowLabel().x() + row.lowLabel().naturalWidth(),
              row.highLabel().geometry().right() - row.highLabel().naturalWidth());
}

} // namespace

} // namespace orrinvale
