// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PopoverPalette.h"

#include <QGuiApplication>
#include <QPalette>

namespace orrinvale
{

namespace
{

const auto green = rgb(0.29, 0.55, 0.22);
const auto blossom = rgb(0.87, 0.47, 0.60);

PopoverPalette light()
{
    PopoverPalette palette;
    palette.background = rgb(0.961, 0.945, 0.914);
    palette.rowSurface = rgb(0.98, 0.969, 0.949);
    palette.separator = rgb(0.85, 0.83, 0.80);
    palette.primaryText = rgb(0.16, 0.15, 0.13);
    palette.secondaryText = rgb(0.45, 0.43, 0.40);
    palette.accent = green;
    palette.strong = green;
    palette.tint = withAlpha(green, 0.12);
    palette.toggleText = rgb(0.45, 0.43, 0.40);
    palette.rowPrimaryText = palette.primaryText;
    palette.rowSecondaryText = palette.secondaryText;
    return palette;
}

PopoverPalette dark()
{
    PopoverPalette palette;
    palette.background = rgb(0.12, 0.12, 0.11);
    palette.rowSurface = rgb(0.16, 0.16, 0.14);
    palette.separator = rgb(0.25, 0.25, 0.23);
    palette.primaryText = white(0.88);
    palette.secondaryText = rgb(0.55, 0.53, 0.50);
    palette.accent = green;
    palette.strong = QColor(0x86, 0xbd, 0x70); // the accent itself is too dark for symbols on this ground
    palette.tint = withAlpha(palette.strong, 0.14);
    palette.toggleText = white(0.88);
    palette.rowPrimaryText = white(0.88);
    palette.rowSecondaryText = white(0.50);
    return palette;
}

PopoverPalette sakura()
{
    PopoverPalette palette = light();
    palette.background = rgb(0.988, 0.949, 0.96);
    palette.rowSurface = rgb(0.996, 0.973, 0.98);
    palette.separator = rgb(0.93, 0.83, 0.87);
    palette.primaryText = rgb(0.32, 0.18, 0.24);
    palette.secondaryText = rgb(0.60, 0.42, 0.48);
    palette.accent = blossom;
    palette.strong = QColor(0xb8, 0x52, 0x75);
    palette.tint = withAlpha(blossom, 0.14);
    palette.rowPrimaryText = palette.primaryText;
    palette.rowSecondaryText = palette.secondaryText;
    return palette;
}

} // namespace

PopoverPalette PopoverPalette::of(Look look)
{
    auto palette = look == Look::dark ? dark() : look == Look::sakura ? sakura() : light();
    palette.toggleSelected = green;
    palette.cooldownDot = rgb(0.85, 0.65, 0.10);
    palette.idleDot = rgb(0.65, 0.63, 0.60);
    palette.idleBadge = white(0.55);
    palette.highlight = QGuiApplication::palette().color(QPalette::Highlight);
    return palette;
}

} // namespace orrinvale
