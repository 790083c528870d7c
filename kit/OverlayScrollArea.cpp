// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/OverlayScrollArea.h"

#include "kit/OverlayThumb.h"

#include <QApplication>

namespace orrinvale
{

namespace
{

constexpr auto focusMargin = 20; // room that a focused control keeps to the edge

} // namespace

OverlayScrollArea::OverlayScrollArea(QWidget* parent)
    : QScrollArea(parent), m_thumb(new OverlayThumb(this, OverlayThumb::Shows::whileScrolling))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
}

void OverlayScrollArea::setThumbColour(const QColor& colour)
{
    m_thumb->setColour(colour);
}

bool OverlayScrollArea::focusNextPrevChild(bool next)
{
    const auto moved = QScrollArea::focusNextPrevChild(next);
    if (auto* focused = QApplication::focusWidget(); moved && focused && isAncestorOf(focused))
        ensureWidgetVisible(focused, 0, focusMargin);
    return moved;
}

} // namespace orrinvale
