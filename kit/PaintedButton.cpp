// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/PaintedButton.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace orrinvale
{

bool isKeyboardFocus(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

PaintedButton::PaintedButton(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void PaintedButton::showFocusRing(bool shows)
{
    m_showsFocusRing = shows;
    update();
}

void PaintedButton::enterEvent(QEnterEvent* event)
{
    m_isHovered = true;
    update();
    QAbstractButton::enterEvent(event);
}

void PaintedButton::leaveEvent(QEvent* event)
{
    m_isHovered = false;
    update();
    QAbstractButton::leaveEvent(event);
}

void PaintedButton::focusInEvent(QFocusEvent* event)
{
    showFocusRing(isKeyboardFocus(event->reason()));
    QAbstractButton::focusInEvent(event);
}

void PaintedButton::focusOutEvent(QFocusEvent* event)
{
    update();
    QAbstractButton::focusOutEvent(event);
}

void PaintedButton::keyPressEvent(QKeyEvent* event)
{
    showFocusRing(true);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else if (event->key() == Qt::Key_Space)
        QAbstractButton::keyPressEvent(event);
    else
        event->ignore(); // arrows belong to whoever arranged the buttons
}

void PaintedButton::mousePressEvent(QMouseEvent* event)
{
    showFocusRing(false);
    QAbstractButton::mousePressEvent(event);
}

void PaintedButton::mouseReleaseEvent(QMouseEvent* event)
{
    QAbstractButton::mouseReleaseEvent(event);
    update();
}

} // namespace orrinvale
