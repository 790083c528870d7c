// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusItemAnchor.h"

namespace orrinvale
{

bool isPlausibleClick(const QPoint& click, const QRect& desktop)
{
    constexpr auto largestIcon = 64;
    return desktop.contains(click) && (click.x() >= largestIcon || click.y() >= largestIcon);
}

bool isPlausibleIcon(const QRect& icon, const QRect& desktop)
{
    constexpr auto undocked = QRect(0, 0, 22, 22); // what Qt tells of an icon that no tray has taken
    return !icon.isEmpty() && desktop.contains(icon.center()) && icon != undocked;
}

} // namespace orrinvale
