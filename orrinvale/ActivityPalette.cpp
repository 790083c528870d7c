// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityPalette.h"

#include "kit/Colours.h"

namespace orrinvale
{

namespace
{

std::array<QColor, 5> levelsOf(bool isDark, bool isSakura)
{
    if (isSakura && isDark)
        return {white(0.22), rgb(0.35, 0.14, 0.22), rgb(0.55, 0.20, 0.34), rgb(0.75, 0.32, 0.48),
                rgb(0.92, 0.45, 0.60)};
    if (isSakura)
        return {rgb(0.91, 0.87, 0.88), rgb(0.97, 0.87, 0.90), rgb(0.95, 0.73, 0.80), rgb(0.90, 0.55, 0.67),
                rgb(0.83, 0.38, 0.53)};
    if (isDark)
        return {white(0.22), rgb(0.07, 0.28, 0.12), rgb(0.10, 0.44, 0.18), rgb(0.18, 0.60, 0.28),
                rgb(0.29, 0.72, 0.42)};
    return {rgb(0.90, 0.89, 0.87), rgb(0.82, 0.94, 0.84), rgb(0.60, 0.86, 0.66), rgb(0.30, 0.72, 0.44),
            rgb(0.15, 0.58, 0.30)};
}

} // namespace

ActivityPalette ActivityPalette::of(bool isDark, bool isSakura)
{
    ActivityPalette palette;
    palette.levels = levelsOf(isDark, isSakura);
    palette.selectionRing = isSakura ? rgb(0.72, 0.32, 0.46) : rgb(0.18, 0.58, 0.30);
    palette.bar = isSakura ? rgb(0.87, 0.47, 0.60) : rgb(0.63, 0.75, 0.58);
    palette.appName = isSakura ? rgb(0.32, 0.18, 0.24) : white(isDark ? 0.88 : 0.12);
    palette.appTime = isSakura ? rgb(0.62, 0.44, 0.50) : white(isDark ? 0.50 : 0.45);
    return palette;
}

Look lookOf(bool isDark, bool isSakura)
{
    if (isSakura)
        return Look::sakura;
    return isDark ? Look::dark : Look::light;
}

} // namespace orrinvale
