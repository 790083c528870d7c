// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/Colours.h"

#include <algorithm>
#include <cmath>

namespace orrinvale
{

namespace
{

// Relative luminance of sRGB: https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double luminance(const QColor& colour)
{
    const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

QColor withAlpha(QColor colour, double alpha)
{
    colour.setAlphaF(static_cast<float>(alpha));
    return colour;
}

QColor blended(const QColor& ground, const QColor& over)
{
    const auto alpha = double(over.alphaF());
    const auto mix = [&](double below, double above) { return below * (1 - alpha) + above * alpha; };
    return rgb(mix(ground.redF(), over.redF()), mix(ground.greenF(), over.greenF()), mix(ground.blueF(), over.blueF()));
}

double contrastRatio(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace orrinvale
