// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Colours.h"
#include "kit/Look.h"

namespace orrinvale
{

// The colours of the windows for one look.
struct WindowPalette {
    QColor window;
    QColor card; // and header bars
    QColor border;
    QColor accent;
    QColor primaryText;
    QColor secondaryText;
    QColor quietText;    // subtitles, captions, heads of sections
    QColor tertiaryText; // placeholders and the symbols of fields
    QColor field;
    QColor controlOn;
    QColor controlOff;
    QColor controlBorder;
    QColor focusRing; // and the chosen theme tile
    QColor button;
    QColor buttonBorder;
    QColor buttonHover;
    QColor buttonPressed;
    QColor defaultButton; // with white text
    QColor defaultButtonHover;
    QColor defaultButtonPressed;
    QColor danger;
    QColor dangerWash;
    QColor selection;
    QColor rowHover;
    QColor symbol;
    QColor symbolWash;
    QColor scrim;
    QColor scrollThumb;

    static const WindowPalette& of(Look look);
};

} // namespace orrinvale
