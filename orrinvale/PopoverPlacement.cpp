// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PopoverPlacement.h"

#include "orrinvale/PopoverLayout.h"

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto gap = 4;
constexpr auto cornerGap = 8;
constexpr auto halfIcon = 16; // of a large one
constexpr auto screenMargin = 8;

int clamped(int wanted, int least, int most)
{
    return std::max(least, std::min(wanted, most));
}

// Off the sides of the part by `screenMargin`, as far as there is room for that.
QPoint clampedInto(const QPoint& wanted, const QSize& size, const QRect& available)
{
    const auto x = std::clamp((available.width() - size.width()) / 2, 0, screenMargin);
    return {clamped(wanted.x(), available.left() + x, available.right() + 1 - size.width() - x),
            clamped(wanted.y(), available.top(), available.bottom() + 1 - size.height())};
}

QPoint besideIcon(const QRect& icon, const QSize& size, const QRect& screen)
{
    const auto isBelowMiddle = icon.center().y() > screen.center().y();
    const auto y = isBelowMiddle ? icon.top() - gap - size.height() : icon.bottom() + 1 + gap;
    return {icon.center().x() - size.width() / 2, y};
}

QPoint panelCorner(const QSize& size, const QRect& screen, const QRect& available)
{
    const auto isPanelBelow = screen.bottom() - available.bottom() > available.top() - screen.top();
    const auto isPanelLeft = available.left() - screen.left() > screen.right() - available.right();
    const auto x = isPanelLeft ? available.left() + cornerGap : available.right() + 1 - cornerGap - size.width();
    const auto y = isPanelBelow ? available.bottom() + 1 - cornerGap - size.height() : available.top() + cornerGap;
    return {x, y};
}

// The desktop's panels may be on layers, and then the margins count from them, or be windows of another kind.
LayerPlacement besideKnownPanel(StatusItemAnchor anchor, int contentHeight, const LayerRoom& room)
{
    if (anchor.pointer) // wherever in the panel it was
        anchor.pointer->setY(clamped(anchor.pointer->y(), room.available.top() - 1, room.available.bottom() + 1));
    const QSize size(PopoverLayout::width, popoverHeight(contentHeight, room.available.height()));
    const QRect place(popoverPosition(anchor, size, room.screen, room.available), size);
    const auto& counted = room.withoutLayers == room.screen.size() ? room.screen : room.available;
    const auto left = place.left() - counted.left();
    const auto top = place.top() - counted.top();
    const auto right = counted.right() - place.right();
    const auto bottom = counted.bottom() - place.bottom();
    return {size,
            (bottom < top ? Qt::BottomEdge : Qt::TopEdge) | (right < left ? Qt::RightEdge : Qt::LeftEdge),
            {right < left ? 0 : left, bottom < top ? 0 : top, right < left ? right : 0, bottom < top ? bottom : 0}};
}

} // namespace

int popoverHeight(int contentHeight, int availableHeight)
{
    return std::min({contentHeight, PopoverLayout::height, availableHeight - 2 * screenMargin});
}

QPoint popoverPosition(const StatusItemAnchor& anchor, const QSize& size, const QRect& screen, const QRect& available)
{
    if (anchor.icon)
        return clampedInto(besideIcon(*anchor.icon, size, screen), size, available);
    if (anchor.pointer)
        return clampedInto(besideIcon(QRect(*anchor.pointer, QSize(1, 1)), size, screen), size, available);
    return clampedInto(panelCorner(size, screen, available), size, available);
}

QRect popoverInCorner(int contentHeight, const QRect& window)
{
    const auto height = popoverHeight(contentHeight, window.height());
    return {window.right() + 1 - cornerGap - PopoverLayout::width, window.top() + cornerGap, PopoverLayout::width,
            height};
}

LayerPlacement popoverLayerPlacement(const StatusItemAnchor& anchor, int contentHeight, const LayerRoom& room)
{
    if (room.available != room.screen)
        return besideKnownPanel(anchor, contentHeight, room);
    constexpr auto width = PopoverLayout::width;
    const auto& screen = room.screen;
    const auto availableHeight = room.withoutLayers.height();
    if (!anchor.pointer)
        return {{width, popoverHeight(contentHeight, availableHeight)},
                Qt::TopEdge | Qt::RightEdge,
                {0, cornerGap, cornerGap, 0}};
    const auto click = *anchor.pointer;
    const auto isAtRight = click.x() > screen.center().x();
    const auto isAtBottom = click.y() > screen.center().y();
    const auto left = std::max(cornerGap, click.x() - screen.left() - width / 2);
    const auto right = std::max(cornerGap, screen.right() + 1 - click.x() - width / 2);
    // Where nothing is taken, the panel is of another kind, and reaches half an icon beyond the click.
    const auto toEdge = isAtBottom ? screen.bottom() - click.y() : click.y() - screen.top();
    const auto panel = availableHeight < screen.height() ? 0 : toEdge + halfIcon;
    const auto away = panel + gap;
    return {{width, popoverHeight(contentHeight, availableHeight - panel)},
            (isAtBottom ? Qt::BottomEdge : Qt::TopEdge) | (isAtRight ? Qt::RightEdge : Qt::LeftEdge),
            {isAtRight ? 0 : left, isAtBottom ? 0 : away, isAtRight ? right : 0, isAtBottom ? away : 0}};
}

} // namespace orrinvale
