// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace orrinvale
{

// Components from 0 to 1, opaque.
inline QColor rgb(double red, double green, double blue)
{
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue)).toRgb();
}
inline QColor white(double level)
{
    return rgb(level, level, level);
}
QColor withAlpha(QColor colour, double alpha);
// `over` painted on `ground`, which is opaque.
QColor blended(const QColor& ground, const QColor& over);
// The ratio of luminances after WCAG 2.1, from 1 to 21; both colours are opaque.
double contrastRatio(const QColor& one, const QColor& other);

} // namespace orrinvale
