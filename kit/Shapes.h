// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

class QPainter;

namespace orrinvale
{

// A rectangle whose upper and lower corners are rounded by radii of their own.
QPainterPath roundedPath(const QRectF& rect, double topRadius, double bottomRadius);
// An outline of `width` that lies wholly inside `rect`, so that whole pixels stay whole.
void strokeInside(QPainter& painter, const QRectF& rect, double radius, double width, const QColor& colour);

// The nearest rectangle whose edges are edges of device pixels; the painter must not be rotated or scaled.
QRectF snapped(const QPainter& painter, const QRectF& rect);
// The ground and hairline of a card in a window.
void paintCard(QPainter& painter, const QRectF& rect, const QColor& ground, const QColor& border);

} // namespace orrinvale
