// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PopoverPalette.h"

#include "tests/interface/InterfaceFixture.h"

#include <QPalette>

namespace orrinvale
{

namespace
{

constexpr std::array allLooks{Look::light, Look::dark, Look::sakura};

struct Expected {
    const char* use;
    QColor PopoverPalette::*colour;
    QColor value;
};

void expectColours(Look look, std::initializer_list<Expected> table)
{
    const auto palette = PopoverPalette::of(look);
    for (const auto& row : table)
        EXPECT_EQ(bytes(palette.*row.colour), row.value) << row.use;
}

const auto green = tableColour(0.29, 0.55, 0.22);

TEST(PopoverPalette, Light)
{
    expectColours(Look::light, {{"background", &PopoverPalette::background, tableColour(0.961, 0.945, 0.914)},
                                {"secondary text", &PopoverPalette::secondaryText, tableColour(0.45, 0.43, 0.40)},
                                {"row surface", &PopoverPalette::rowSurface, tableColour(0.98, 0.969, 0.949)},
                                {"row separator", &PopoverPalette::separator, tableColour(0.85, 0.83, 0.80)},
                                {"primary text", &PopoverPalette::primaryText, QColor(0x29, 0x26, 0x21)},
                                {"row title", &PopoverPalette::rowPrimaryText, QColor(0x29, 0x26, 0x21)},
                                {"row subtitle", &PopoverPalette::rowSecondaryText, tableColour(0.45, 0.43, 0.40)},
                                {"accent", &PopoverPalette::accent, green},
                                {"strong", &PopoverPalette::strong, green},
                                {"tint", &PopoverPalette::tint, tableColour(0.29, 0.55, 0.22, 0.12)},
                                {"toggle text", &PopoverPalette::toggleText, tableColour(0.45, 0.43, 0.40)}});
}

TEST(PopoverPalette, Dark)
{
    expectColours(Look::dark, {{"background", &PopoverPalette::background, tableColour(0.12, 0.12, 0.11)},
                               {"secondary text", &PopoverPalette::secondaryText, tableColour(0.55, 0.53, 0.50)},
                               {"row surface", &PopoverPalette::rowSurface, tableColour(0.16, 0.16, 0.14)},
                               {"row separator", &PopoverPalette::separator, tableColour(0.25, 0.25, 0.23)},
                               {"primary text", &PopoverPalette::primaryText, tableColour(0.88, 0.88, 0.88)},
                               {"row title", &PopoverPalette::rowPrimaryText, tableColour(0.88, 0.88, 0.88)},
                               {"row subtitle", &PopoverPalette::rowSecondaryText, tableColour(0.50, 0.50, 0.50)},
                               {"accent", &PopoverPalette::accent, green},
                               {"strong", &PopoverPalette::strong, QColor(0x86, 0xbd, 0x70)},
                               {"tint", &PopoverPalette::tint, QColor(0x86, 0xbd, 0x70, std::lround(0.14 * 255))},
                               {"toggle text", &PopoverPalette::toggleText, tableColour(0.88, 0.88, 0.88)}});
}

TEST(PopoverPalette, Sakura)
{
    expectColours(Look::sakura, {{"background", &PopoverPalette::background, tableColour(0.988, 0.949, 0.96)},
                                 {"secondary text", &PopoverPalette::secondaryText, tableColour(0.60, 0.42, 0.48)},
                                 {"row surface", &PopoverPalette::rowSurface, tableColour(0.996, 0.973, 0.98)},
                                 {"row separator", &PopoverPalette::separator, tableColour(0.93, 0.83, 0.87)},
                                 {"primary text", &PopoverPalette::primaryText, QColor(0x52, 0x2e, 0x3d)},
                                 {"row title", &PopoverPalette::rowPrimaryText, QColor(0x52, 0x2e, 0x3d)},
                                 {"row subtitle", &PopoverPalette::rowSecondaryText, tableColour(0.60, 0.42, 0.48)},
                                 {"accent", &PopoverPalette::accent, tableColour(0.87, 0.47, 0.60)},
                                 {"strong", &PopoverPalette::strong, QColor(0xb8, 0x52, 0x75)},
                                 {"tint", &PopoverPalette::tint, tableColour(0.87, 0.47, 0.60, 0.14)},
                                 {"toggle text", &PopoverPalette::toggleText, tableColour(0.45, 0.43, 0.40)}});
}

TEST(PopoverPalette, WhatIsTheSameInEveryLook)
{
    for (const auto look : allLooks)
        expectColours(look, {{"selected segment", &PopoverPalette::toggleSelected, green},
                             {"dot of a cooldown", &PopoverPalette::cooldownDot, tableColour(0.85, 0.65, 0.10)},
                             {"dot while idle", &PopoverPalette::idleDot, tableColour(0.65, 0.63, 0.60)},
                             {"badge without a reason", &PopoverPalette::idleBadge, tableColour(0.55, 0.55, 0.55)}});
}

TEST(PopoverPalette, HoverTakesTheHighlightOfTheDesktop)
{
    const auto before = QApplication::palette();
    auto palette = before;
    palette.setColor(QPalette::Highlight, QColor(1, 2, 3));
    QApplication::setPalette(palette);
    EXPECT_EQ(PopoverPalette::of(Look::light).highlight, QColor(1, 2, 3));
    QApplication::setPalette(before);
}

TEST(PopoverPalette, TextIsReadableOnItsGround)
{
    for (const auto look : allLooks) {
        const auto palette = PopoverPalette::of(look);
        SCOPED_TRACE(static_cast<int>(look));
        EXPECT_GE(contrastRatio(palette.primaryText, palette.background), 4.5);
        EXPECT_GE(contrastRatio(palette.primaryText, palette.rowSurface), 4.5);
        EXPECT_GE(contrastRatio(palette.rowPrimaryText, palette.rowSurface), 4.5);
        EXPECT_GE(contrastRatio(palette.toggleText, palette.rowSurface), 4.5);
    }
}

TEST(PopoverPalette, SymbolsAndFocusRingsStandOut)
{
    for (const auto look : allLooks) {
        const auto palette = PopoverPalette::of(look);
        SCOPED_TRACE(static_cast<int>(look));
        EXPECT_GE(contrastRatio(palette.strong, blended(palette.rowSurface, palette.tint)), 3);
        EXPECT_GE(contrastRatio(palette.strong, palette.background), 3);
        EXPECT_GE(contrastRatio(palette.strong, palette.rowSurface), 3);
    }
}

} // namespace

} // namespace orrinvale
