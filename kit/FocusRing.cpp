// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/FocusRing.h"

#include "kit/Shapes.h"

#include <QPainter>
#include <QWidget>

namespace orrinvale
{

QRect shownRect(const QWidget& control)
{
    return control.rect().adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom);
}

void placeShown(QWidget& control, const QRect& rect)
{
    control.setGeometry(rect.adjusted(-ringRoom, -ringRoom, ringRoom, ringRoom));
}

void paintFocusRing(QPainter& painter, const QRectF& shown, double radius, const QColor& colour)
{
    strokeInside(painter, shown.adjusted(-ringRoom, -ringRoom, ringRoom, ringRoom), radius + ringRoom, 2, colour);
}

} // namespace orrinvale
