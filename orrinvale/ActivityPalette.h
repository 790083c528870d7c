// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Look.h"

#include <QColor>

#include <array>

namespace orrinvale
{

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
