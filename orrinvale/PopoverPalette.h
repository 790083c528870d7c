// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Colours.h"
#include "kit/Look.h"

namespace orrinvale
{

// The colours of the status popover for one look.
struct PopoverPalette {
    QColor background;
    QColor rowSurface; // of rows, reason card and toggle track
    QColor separator;
    QColor primaryText;
    QColor secondaryText;
    QColor rowPrimaryText;
    QColor rowSecondaryText;
    QColor accent; // state dot, page dots, reason badge
    QColor strong; // row symbols and focus rings
    QColor tint;   // ground of row symbols; translucent
    QColor toggleText;
    QColor toggleSelected;
    QColor cooldownDot;
    QColor idleDot;
    QColor idleBadge;
    QColor highlight; // hover and press, at their alphas

    static PopoverPalette of(Look look);
};

} // namespace orrinvale
