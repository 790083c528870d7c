// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QColor;
class QPainter;
class QWidget;

namespace orrinvale
{

// The ring around a focused control: 2 wide, 2 off. A control that paints one is larger than what it shows of itself,
// by `ringRoom` on each side.
inline constexpr int ringRoom = 4;

// What a control with room for its ring shows of itself.
QRect shownRect(const QWidget& control);
// Places a control so that what it shows of itself covers `rect`.
void placeShown(QWidget& control, const QRect& rect);
void paintFocusRing(QPainter& painter, const QRectF& shown, double radius, const QColor& colour);

} // namespace orrinvale
