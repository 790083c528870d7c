// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/LayerSurface.h"

#include <QRect>

#include <functional>
#include <optional>

class QScreen;

namespace orrinvale
{

// What is known of where the status item is, in the coordinates of the whole desktop.
struct PopoverAnchor {
    std::optional<QRect> icon;     // as the tray tells, when it does and is to be believed
    std::optional<QPoint> pointer; // at the click, where the desktop lets us know
};

// The part of a screen that no panel takes.
using AvailableGeometry = std::function<QRect(const QScreen&)>;

// Of a popover whose content is that high, on a screen with that much room: what does not fit is scrolled to.
int popoverHeight(int contentHeight, int availableHeight);

// The upper left corner of a popover of `size`: on the icon's side that points into the screen, else at the pointer,
// else in the corner next to the panel; always wholly on the screen's available part where it fits.
QPoint popoverPosition(const PopoverAnchor& anchor, const QSize& size, const QRect& screen, const QRect& available);

// The same as the margins of a layer surface on a screen with that much height that no panel on a layer takes: below or
// above the pointer, else in the upper right corner, where most panels have their tray. The placement's size is that of
// a popover with content so high.
LayerPlacement popoverLayerPlacement(const PopoverAnchor& anchor, int contentHeight, const QRect& screen,
                                     int availableHeight);

// Some trays of Wayland tell where in their icon a click was, which is where on the screen no icon is.
bool isPlausibleClick(const QPoint& click, const QRect& desktop);

// A tray that has not placed its icon tells nonsense: an empty one, or one in the corner of an undocked window.
bool isPlausibleIcon(const QRect& icon, const QRect& desktop);

} // namespace orrinvale
