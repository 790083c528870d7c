// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/Shapes.h"

#include <QPainter>

namespace orrinvale
{

QPainterPath roundedPath(const QRectF& rect, double topRadius, double bottomRadius)
{
    QPainterPath top;
    QPainterPath bottom;
    const auto middle = rect.center().y();
    top.addRoundedRect(rect, topRadius, topRadius);
    bottom.addRoundedRect(rect, bottomRadius, bottomRadius);
    if (topRadius == bottomRadius)
        return top;
    QPainterPath upperHalf;
    QPainterPath lowerHalf;
    upperHalf.addRect(QRectF(rect.topLeft(), QPointF(rect.right(), middle)));
    lowerHalf.addRect(QRectF(QPointF(rect.left(), middle), rect.bottomRight()));
    return top.intersected(upperHalf).united(bottom.intersected(lowerHalf));
}

void strokeInside(QPainter& painter, const QRectF& rect, double radius, double width, const QColor& colour)
{
    const auto half = width / 2;
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
}

} // namespace orrinvale
