// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowPalette.h"

#include "kit/Colours.h"
#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

QColor grey(double level)
{
    return tableColour(level, level, level);
}
QColor hex(QRgb colour, double alpha = 1)
{
    auto opaque = QColor(colour);
    opaque.setAlpha(static_cast<int>(std::lround(alpha * 255)));
    return opaque;
}

struct Role {
    const char* name;
    QColor WindowPalette::*colour;
    std::array<QColor, 3> values; // light, dark, sakura
};
const Role roles[] = {
    {"window", &WindowPalette::window, {grey(0.96), grey(0.09), tableColour(0.988, 0.949, 0.96)}},
    {"card", &WindowPalette::card, {grey(0.99), grey(0.12), tableColour(0.996, 0.976, 0.983)}},
    {"border", &WindowPalette::border, {grey(0.93), grey(0.16), tableColour(0.973, 0.906, 0.925)}},
    {"accent",
     &WindowPalette::accent,
     {tableColour(0.29, 0.72, 0.42), tableColour(0.29, 0.72, 0.42), tableColour(0.87, 0.47, 0.60)}},
    {"primary", &WindowPalette::primaryText, {grey(0.10), grey(0.88), tableColour(0.32, 0.18, 0.24)}},
    {"secondary", &WindowPalette::secondaryText, {grey(0.35), grey(0.45), tableColour(0.60, 0.42, 0.48)}},
    {"quiet", &WindowPalette::quietText, {hex(0x595959), hex(0x9e9e9e), hex(0x875c6b)}},
    {"tertiary", &WindowPalette::tertiaryText, {hex(0x707070), hex(0x8f8f8f), hex(0x8f6373)}},
    {"field", &WindowPalette::field, {hex(0xffffff), hex(0x141414), hex(0xffffff)}},
    {"control on", &WindowPalette::controlOn, {hex(0x2e944d), hex(0x338f52), hex(0xd46187)}},
    {"control off", &WindowPalette::controlOff, {hex(0xe3e3e3), hex(0x333333), hex(0xf2e2e8)}},
    {"control border", &WindowPalette::controlBorder, {hex(0x8f8f8f), hex(0x7a7a7a), hex(0xad8091)}},
    {"focus ring", &WindowPalette::focusRing, {hex(0x2e944d), hex(0x4ab86b), hex(0xb85275)}},
    {"button", &WindowPalette::button, {hex(0xffffff), hex(0x2e2e2e), hex(0xfffcfd)}},
    {"button border", &WindowPalette::buttonBorder, {hex(0xcccccc), hex(0x454545), hex(0xe6c9d4)}},
    {"button hover", &WindowPalette::buttonHover, {hex(0xf4f6f4), hex(0x383838), hex(0xfdf0f4)}},
    {"button pressed", &WindowPalette::buttonPressed, {hex(0xe6e9e6), hex(0x262626), hex(0xf8e2ea)}},
    {"default", &WindowPalette::defaultButton, {hex(0x297842), hex(0x307d47), hex(0xb34d70)}},
    {"default hover", &WindowPalette::defaultButtonHover, {hex(0x236a39), hex(0x338548), hex(0xa34365)}},
    {"default pressed", &WindowPalette::defaultButtonPressed, {hex(0x1d5a30), hex(0x28693c), hex(0x8f3957)}},
    {"danger", &WindowPalette::danger, {hex(0xbd2b26), hex(0xf5857a), hex(0xb8212e)}},
    {"danger wash", &WindowPalette::dangerWash, {hex(0xfbeceb), hex(0x38211f), hex(0xfde9ea)}},
    {"selection", &WindowPalette::selection, {hex(0xe0f2e3), hex(0x21422b), hex(0xfae3eb)}},
    {"row hover", &WindowPalette::rowHover, {hex(0xf1f3f1), hex(0x292929), hex(0xfcf0f4)}},
    {"symbol", &WindowPalette::symbol, {hex(0x297842), hex(0x4ab86b), hex(0xb34d70)}},
    {"symbol wash", &WindowPalette::symbolWash, {hex(0xe6f3e8), hex(0x1c2e21), hex(0xfbe7ee)}},
    {"scrim", &WindowPalette::scrim, {hex(0x1a1a1a, 0.32), hex(0x000000, 0.55), hex(0x522e3d, 0.34)}},
    {"scroll thumb", &WindowPalette::scrollThumb, {hex(0x000000, 0.26), hex(0xffffff, 0.28), hex(0x522e3d, 0.30)}},
};

struct WindowPaletteTest : testing::TestWithParam<Role> {
};

TEST_P(WindowPaletteTest, HasItsColourInEachLook)
{
    for (const auto look : allLooks)
        EXPECT_EQ(bytes(WindowPalette::of(look).*GetParam().colour), GetParam().values[static_cast<std::size_t>(look)])
            << GetParam().name << " in look " << static_cast<int>(look);
}

INSTANTIATE_TEST_SUITE_P(Roles, WindowPaletteTest, testing::ValuesIn(roles), [](const auto& each) {
    auto name = std::string(each.param.name);
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});

TEST(WindowPalette, TextCanBeReadOnWhatItStandsOn)
{
    for (const auto look : allLooks) {
        const auto& palette = WindowPalette::of(look);
        EXPECT_GE(contrastRatio(palette.primaryText, palette.card), 11);
        EXPECT_GE(contrastRatio(palette.quietText, palette.card), 5.3);
        EXPECT_GE(contrastRatio(palette.tertiaryText, palette.card), 4.79);
        EXPECT_GE(contrastRatio(palette.tertiaryText, palette.window), 4.5);
        EXPECT_GE(contrastRatio(palette.danger, palette.dangerWash), 5.1);
        EXPECT_GE(contrastRatio(Qt::white, palette.defaultButton), 4.5);
    }
}

TEST(WindowPalette, ControlsStandOutFromTheCard)
{
    for (const auto look : allLooks) {
        const auto& palette = WindowPalette::of(look);
        EXPECT_GE(contrastRatio(palette.controlBorder, palette.card), 3);
        EXPECT_GE(contrastRatio(palette.focusRing, palette.card), 3);
        EXPECT_GE(contrastRatio(palette.controlOn, palette.card), 3);
    }
}

} // namespace

} // namespace orrinvale
