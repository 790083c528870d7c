// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/Typography.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto usualPixels = 13.0;
constexpr auto largestScale = 1.5;

// Qt takes fractions of a size in points only.
double pixelsPerPoint()
{
    const auto* screen = QGuiApplication::primaryScreen();
    return (screen ? screen->logicalDotsPerInchY() : 96.0) / 72.0;
}

} // namespace

double textScale()
{
    return std::clamp(pixelSizeOf(QGuiApplication::font()) / usualPixels, 1.0, largestScale);
}

QFont textFont(double pixels, QFont::Weight weight, double tracking)
{
    return scaledFont(pixels, weight, tracking, textScale());
}

QFont scaledFont(double pixels, QFont::Weight weight, double tracking, double scale)
{
    auto font = QGuiApplication::font();
    font.setPointSizeF(pixels * scale / pixelsPerPoint());
    font.setWeight(weight);
    if (tracking != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, tracking * scale);
    return font;
}

double pixelSizeOf(const QFont& font)
{
    return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * pixelsPerPoint();
}

} // namespace orrinvale
