// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "layer_shell/LayerSurface.h"
#include "tray/StatusItemAnchor.h"

#include <QRect>

#include <functional>

class QScreen;

namespace orrinvale
{

// The part of a screen that no panel takes.
using AvailableGeometry = std::function<QRect(const QScreen&)>;

// Of a popover whose content is that high, on a screen with that much room: what does not fit is scrolled to.
int popoverHeight(int contentHeight, int availableHeight);

// The upper left corner of a popover of `size`: on the icon's side that points into the screen, else at the pointer,
// else in the corner next to the panel; always wholly on the screen's available part where it fits.
QPoint popoverPosition(const StatusItemAnchor& anchor, const QSize& size, const QRect& screen, const QRect& available);

// What is known of a screen on which a layer surface is to be.
struct LayerRoom {
    QRect screen;
    QRect available;       // as the desktop tells; the whole screen where it tells nothing
    QSize withoutLayers{}; // of the screen, what no panel on a layer takes
};

// The same as the margins of a layer surface. Where the desktop does not tell of its panels: below or above the
// pointer, else in the upper right corner, where most panels have their tray. The placement's size is that of a popover
// with content so high.
LayerPlacement popoverLayerPlacement(const StatusItemAnchor& anchor, int contentHeight, const LayerRoom& room);

// Its place inside of a window that covers all of the screen's available part.
QRect popoverInCorner(int contentHeight, const QRect& window);

} // namespace orrinvale
