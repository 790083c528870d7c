// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/Look.h"

#include <QString>

#include <optional>

namespace orrinvale
{

// The colours of the feedback window for one look.
struct FeedbackPalette {
    QColor window;
    QColor header;
    QColor accent;  // the rule under the header
    QColor primary; // the window's head
    QColor quiet;   // every other word, and the symbol
    QColor ringRest;
    QColor ringDone;

    static FeedbackPalette of(Look look);
};

// How the two programs that show the window name a look to each other.
QString nameOf(Look look);
std::optional<Look> lookNamed(QStringView name);

} // namespace orrinvale
