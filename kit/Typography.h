// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace orrinvale
{

// How much larger than drawn the desktop wants its text: its interface font over 13 pixels, from 1 to 1.5.
double textScale();
// The desktop's interface font, `pixels` high at a text scale of 1; `tracking` is added between letters, in pixels.
QFont textFont(double pixels, QFont::Weight weight = QFont::Normal, double tracking = 0);
// The same at a scale of the caller's.
QFont scaledFont(double pixels, QFont::Weight weight, double tracking, double scale);
// The size in logical pixels that `font` was asked for.
double pixelSizeOf(const QFont& font);

} // namespace orrinvale
