// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <optional>

namespace orrinvale
{

// What is known of where the status item is, in the coordinates of the whole desktop.
struct StatusItemAnchor {
    std::optional<QRect> icon;     // as the tray tells, when it does and is to be believed
    std::optional<QPoint> pointer; // at the click, where the desktop lets us know
};

// Some trays of Wayland tell where in their icon a click was, which is where on the screen no icon is.
bool isPlausibleClick(const QPoint& click, const QRect& desktop);

// A tray that has not placed its icon tells nonsense: an empty one, or one in the corner of an undocked window.
bool isPlausibleIcon(const QRect& icon, const QRect& desktop);

} // namespace orrinvale
