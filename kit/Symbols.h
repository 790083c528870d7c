// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

class QPainter;

namespace orrinvale
{

// Our own symbols, one colour each, on a square of 24.

bool isSymbol(const QString& name);
// `size` in logical pixels, sharp at `devicePixelRatio`. Null when there is no such symbol.
QPixmap symbolPixmap(const QString& name, double size, const QColor& colour, qreal devicePixelRatio);
// Paints it into the square `rect`, at the painter's pixel ratio; nothing when there is no such symbol.
void paintSymbol(QPainter& painter, const QString& name, const QRectF& rect, const QColor& colour);

} // namespace orrinvale
