// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/PaintedButton.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleHints>

#include <optional>

namespace orrinvale
{

bool isKeyboardFocus(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

namespace
{

// Presses in one place that follow each other as those of a double click do, and the button that got the first of them.
struct Gesture {
    QPointer<const QWidget> button;
    QPoint place;          // on the desktop
    quint64 lastPress = 0; // ms

    bool goesOnWith(const QMouseEvent& press) const
    {
        const auto* hints = QGuiApplication::styleHints();
        const auto moved = press.globalPosition().toPoint() - place;
        return press.timestamp() - lastPress < static_cast<quint64>(hints->mouseDoubleClickInterval()) &&
               moved.manhattanLength() <= hints->mouseDoubleClickDistance();
    }
};

// Whether the press is a further one of a gesture that began on another button. There is one pointer, so one gesture.
bool belongsElsewhere(const QMouseEvent& press, const QWidget& button)
{
    static std::optional<Gesture> last;
    if (!last || !last->goesOnWith(press))
        last = Gesture{&button, press.globalPosition().toPoint(), 0};
    last->lastPress = press.timestamp();
    return last->button != &button;
}

} // namespace

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
    const auto isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !event->isAutoRepeat())
        click();
    else if (isReturn)
        return; // held: whatever has the focus by now is not what it was pressed on
    else if (event->key() == Qt::Key_Space)
        QAbstractButton::keyPressEvent(event);
    else
        event->ignore(); // arrows belong to whoever arranged the buttons
}

void PaintedButton::mousePressEvent(QMouseEvent* event)
{
    if (belongsElsewhere(*event, *this))
        return;
    showFocusRing(false);
    QAbstractButton::mousePressEvent(event);
}

void PaintedButton::mouseReleaseEvent(QMouseEvent* event)
{
    QAbstractButton::mouseReleaseEvent(event);
    update();
}

} // namespace orrinvale
