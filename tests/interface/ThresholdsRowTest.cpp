// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThresholdsRow.h"

#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

const auto text = QStringLiteral("Load ≥ 40 % · Core ≥ 50 %");

struct ThresholdsRowTest : InterfaceFixture {
    ThresholdsRowTest()
    {
        row.setText(text);
        show(498);
    }
    void show(int width)
    {
        row.applyTheme(WindowPalette::of(Look::light));
        row.resize(width, row.heightFor(width));
        row.show();
    }
    ThresholdsRow row{nullptr};
};

TEST_F(ThresholdsRowTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(row.headLabel().text(), QStringLiteral("Thresholds:"));
    EXPECT_EQ(row.textLabel().text(), text);
    EXPECT_EQ(row.height(), 36);
    EXPECT_EQ(row.headLabel().x(), 16);
    EXPECT_EQ(row.headLabel().height(), 36);
    EXPECT_EQ(row.textLabel().x(), 16 + row.headLabel().naturalWidth() + 1 + 4);
    EXPECT_EQ(row.textLabel().geometry().right() + 1, 482);
}

TEST_F(ThresholdsRowTest, TheValuesAreMediumUnderAQuietHead)
{
    for (const auto look : allLooks) {
        row.applyTheme(WindowPalette::of(look));
        expectText(row.headLabel(), {10, QFont::Normal}, WindowPalette::of(look).quietText);
        expectText(row.textLabel(), {10, QFont::Medium}, WindowPalette::of(look).primaryText);
    }
}

TEST_F(ThresholdsRowTest, LargerTextIsWhole)
{
    const LargerText larger(1.5);
    show(418);
    expectWhole(row.headLabel(), 21);
    expectWhole(row.textLabel(), 21);
    EXPECT_GT(row.textLabel().x(), row.headLabel().geometry().right());
    EXPECT_GE(row.height(), 21 + 16);
}

} // namespace

} // namespace orrinvale
