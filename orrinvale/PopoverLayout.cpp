// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PopoverLayout.h"

#include <algorithm>
#include <cmath>

namespace orrinvale
{

namespace
{

constexpr auto illustrationHeight = 200;
constexpr auto leastIllustrationHeight = 160;

int scaled(double pixels, double scale)
{
    return static_cast<int>(std::lround(pixels * scale));
}

// The vertical distances; they shrink with larger text to make room for it.
struct Gaps {
    int headerToTitle;
    int textToPicture;
    int pictureToCaption;
    int captionToToggle;
};

Gaps gapsAt(double scale)
{
    return scale > 1 ? Gaps{12, 12, 8, 16} : Gaps{20, 16, 8, 20};
}

PopoverLayout arranged(double scale, const PopoverLayout::Needs& needs, int pictureHeight)
{
    constexpr auto left = PopoverLayout::margin;
    constexpr auto full = PopoverLayout::contentWidth;
    const PopoverLines lines(scale);
    const auto gaps = gapsAt(scale);
    PopoverLayout layout;
    auto y = PopoverLayout::margin;
    const auto symbol = scaled(20, scale);
    layout.productWord = QRect(left, y, full - symbol - 8, lines.productWord);
    layout.headerSymbol = QRect(left + full - symbol, y + (lines.productWord - symbol) / 2, symbol, symbol);
    y += lines.productWord + gaps.headerToTitle;
    layout.title = QRect(left, y, full, needs.title(full, lines.title));
    y = layout.title.bottom() + 1;
    const auto dot = scaled(8, scale);
    const auto subtitleLeft = left + scaled(16, scale > 1 ? 1 + (scale - 1) / 2 : 1);
    const auto subtitleWidth = left + full - subtitleLeft;
    layout.subtitle = QRect(subtitleLeft, y, subtitleWidth, needs.subtitle(subtitleWidth, lines.subtitle));
    layout.dot = QRect(left, y + (lines.subtitle - dot) / 2, dot, dot);
    y = layout.subtitle.bottom() + 1 + gaps.textToPicture;
    layout.illustration = QRect(left, y, full, pictureHeight);
    y += pictureHeight + gaps.pictureToCaption;
    layout.tagline = QRect(left, y, full, needs.tagline(full, lines.tagline));
    y = layout.tagline.bottom() + 1 + gaps.captionToToggle;
    layout.toggleTrack = QRect(left, y, full, needs.toggle(full));
    y = layout.toggleTrack.bottom() + 1 + 16;
    layout.card = QRect(left, y, full, needs.card(full));
    y = layout.card.bottom() + 1 + 16;
    const auto groupTop = y;
    for (std::size_t i = 0; i < layout.rows.size(); ++i) {
        layout.rows[i] = QRect(left, y, full, needs.rows[i](full));
        y = layout.rows[i].bottom() + 1;
    }
    layout.rowGroup = QRect(left, groupTop, full, y - groupTop);
    layout.totalHeight = y + PopoverLayout::margin;
    return layout;
}

} // namespace

PopoverLines::PopoverLines(double scale)
    : productWord(scaled(24, scale)), title(scaled(24, scale)), subtitle(scaled(20, scale)), tagline(scaled(16, scale))
{
}

// The picture is the first to give up height; what then does not fit is scrolled to.
PopoverLayout PopoverLayout::of(double scale, const Needs& needs)
{
    const auto wanted = arranged(scale, needs, illustrationHeight);
    const auto missing = std::max(wanted.totalHeight - height, 0);
    const auto pictureHeight = std::max(illustrationHeight - missing, leastIllustrationHeight);
    return missing == 0 ? wanted : arranged(scale, needs, pictureHeight);
}

} // namespace orrinvale
