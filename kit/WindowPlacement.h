// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <algorithm>

namespace orrinvale
{

// Where a window of that size stands in the middle of the screen; a larger one shows its upper left corner.
inline QPoint cornerInMiddle(const QRect& available, const QSize& size)
{
    const auto corner = available.center() - QRect(QPoint(), size).center();
    return {std::max(corner.x(), available.left()), std::max(corner.y(), available.top())};
}

} // namespace orrinvale
