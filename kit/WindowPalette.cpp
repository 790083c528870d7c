// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowPalette.h"

#include <array>

namespace orrinvale
{

namespace
{

QColor hex(QRgb colour)
{
    return QColor(colour);
}

WindowPalette light()
{
    WindowPalette palette;
    palette.window = white(0.96);
    palette.card = white(0.99);
    palette.border = white(0.93);
    palette.accent = rgb(0.29, 0.72, 0.42);
    palette.primaryText = white(0.10);
    palette.secondaryText = white(0.35);
    palette.quietText = hex(0x595959);
    palette.tertiaryText = hex(0x707070);
    palette.field = Qt::white;
    palette.controlOn = hex(0x2e944d);
    palette.controlOff = hex(0xe3e3e3);
    palette.controlBorder = hex(0x8f8f8f);
    palette.focusRing = hex(0x2e944d);
    palette.button = Qt::white;
    palette.buttonBorder = hex(0xcccccc);
    palette.buttonHover = hex(0xf4f6f4);
    palette.buttonPressed = hex(0xe6e9e6);
    palette.defaultButton = hex(0x297842);
    palette.defaultButtonHover = hex(0x236a39);
    palette.defaultButtonPressed = hex(0x1d5a30);
    palette.danger = hex(0xbd2b26);
    palette.dangerWash = hex(0xfbeceb);
    palette.selection = hex(0xe0f2e3);
    palette.rowHover = hex(0xf1f3f1);
    palette.symbol = hex(0x297842);
    palette.symbolWash = hex(0xe6f3e8);
    palette.scrim = withAlpha(hex(0x1a1a1a), 0.32);
    palette.scrollThumb = withAlpha(Qt::black, 0.26);
    return palette;
}

WindowPalette dark()
{
    WindowPalette palette;
    palette.window = white(0.09);
    palette.card = white(0.12);
    palette.border = white(0.16);
    palette.accent = rgb(0.29, 0.72, 0.42);
    palette.primaryText = white(0.88);
    palette.secondaryText = white(0.45);
    palette.quietText = hex(0x9e9e9e);
    palette.tertiaryText = hex(0x8f8f8f);
    palette.field = hex(0x141414);
    palette.controlOn = hex(0x338f52);
    palette.controlOff = hex(0x333333);
    palette.controlBorder = hex(0x7a7a7a);
    palette.focusRing = hex(0x4ab86b);
    palette.button = hex(0x2e2e2e);
    palette.buttonBorder = hex(0x454545);
    palette.buttonHover = hex(0x383838);
    palette.buttonPressed = hex(0x262626);
    palette.defaultButton = hex(0x307d47);
    palette.defaultButtonHover = hex(0x338548);
    palette.defaultButtonPressed = hex(0x28693c);
    palette.danger = hex(0xf5857a);
    palette.dangerWash = hex(0x38211f);
    palette.selection = hex(0x21422b);
    palette.rowHover = hex(0x292929);
    palette.symbol = hex(0x4ab86b);
    palette.symbolWash = hex(0x1c2e21);
    palette.scrim = withAlpha(Qt::black, 0.55);
    palette.scrollThumb = withAlpha(Qt::white, 0.28);
    return palette;
}

WindowPalette sakura()
{
    WindowPalette palette;
    palette.window = rgb(0.988, 0.949, 0.96);
    palette.card = rgb(0.996, 0.976, 0.983);
    palette.border = rgb(0.973, 0.906, 0.925);
    palette.accent = rgb(0.87, 0.47, 0.60);
    palette.primaryText = rgb(0.32, 0.18, 0.24);
    palette.secondaryText = rgb(0.60, 0.42, 0.48);
    palette.quietText = hex(0x875c6b);
    palette.tertiaryText = hex(0x8f6373);
    palette.field = Qt::white;
    palette.controlOn = hex(0xd46187);
    palette.controlOff = hex(0xf2e2e8);
    palette.controlBorder = hex(0xad8091);
    palette.focusRing = hex(0xb85275);
    palette.button = hex(0xfffcfd);
    palette.buttonBorder = hex(0xe6c9d4);
    palette.buttonHover = hex(0xfdf0f4);
    palette.buttonPressed = hex(0xf8e2ea);
    palette.defaultButton = hex(0xb34d70);
    palette.defaultButtonHover = hex(0xa34365);
    palette.defaultButtonPressed = hex(0x8f3957);
    palette.danger = hex(0xb8212e);
    palette.dangerWash = hex(0xfde9ea);
    palette.selection = hex(0xfae3eb);
    palette.rowHover = hex(0xfcf0f4);
    palette.symbol = hex(0xb34d70);
    palette.symbolWash = hex(0xfbe7ee);
    palette.scrim = withAlpha(hex(0x522e3d), 0.34);
    palette.scrollThumb = withAlpha(hex(0x522e3d), 0.30);
    return palette;
}

} // namespace

const WindowPalette& WindowPalette::of(Look look)
{
    static const std::array palettes{light(), dark(), sakura()};
    return palettes[static_cast<std::size_t>(look)];
}

} // namespace orrinvale
