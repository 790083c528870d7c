// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <array>
#include <functional>

namespace orrinvale
{

// Where everything stands in the popover, from the top down, at one text scale. At a scale of 1 and with texts of one
// line each it is exactly as high as the popover.
struct PopoverLayout {
    static constexpr auto width = 340;
    static constexpr auto height = 700;
    static constexpr auto margin = 20;
    static constexpr auto contentWidth = width - 2 * margin;

    // What the texts and blocks need at a width; the caller measures.
    struct Needs {
        std::function<int(int width, int lineHeight)> title;
        std::function<int(int width, int lineHeight)> subtitle;
        std::function<int(int width, int lineHeight)> tagline;
        std::function<int(int width)> toggle;
        std::function<int(int width)> card;
        std::array<std::function<int(int width)>, 3> rows;
    };

    QRect productWord;
    QRect headerSymbol;
    QRect title;
    QRect dot;
    QRect subtitle;
    QRect illustration;
    QRect tagline;
    QRect toggleTrack;
    QRect card;
    QRect rowGroup;
    std::array<QRect, 3> rows;
    int totalHeight;

    static PopoverLayout of(double scale, const Needs& needs);
};

// Line heights of the texts at a scale.
struct PopoverLines {
    explicit PopoverLines(double scale);
    int productWord;
    int title;
    int subtitle;
    int tagline;
};

} // namespace orrinvale
