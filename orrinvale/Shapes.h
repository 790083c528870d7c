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

} // namespace orrinvale
