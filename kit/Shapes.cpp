// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/Shapes.h"

#include <QPainter>

#include <cmath>

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

QRectF snapped(const QPainter& painter, const QRectF& rect)
{
    const auto ratio = painter.device()->devicePixelRatioF();
    const auto origin = painter.deviceTransform().map(QPointF(0, 0)) / ratio;
    const auto snap = [ratio](double value, double offset) {
        return std::round((value + offset) * ratio) / ratio - offset;
    };
    return {QPointF(snap(rect.left(), origin.x()), snap(rect.top(), origin.y())),
            QPointF(snap(rect.right(), origin.x()), snap(rect.bottom(), origin.y()))};
}

void paintCard(QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& border)
{
    constexpr auto radius = 12.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect, radius, radius);
    strokeInside(painter, rect, radius, 1, border);
}

} // namespace orrinvale
