// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/Colours.h"
#include "orrinvale/Look.h"

#include <array>

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

// The colours of the activity views, by the flags that the views keep.
struct ActivityPalette {
    std::array<QColor, 5> levels;
    QColor selectionRing;
    QColor bar;
    QColor appName;
    QColor appTime;

    static ActivityPalette of(bool isDark, bool isSakura);
};

// sakura whenever `isSakura`.
Look lookOf(bool isDark, bool isSakura);

} // namespace orrinvale
