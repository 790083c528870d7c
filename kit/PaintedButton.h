// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace orrinvale
{

// A button that is painted by its subclass from the state kept here: hover, press, and a focus ring that shows only
// after keyboard use. Space, Return and Enter act like a click, once however long they are held. A double click acts on
// the button that it began on and on none that comes to stand in its place. Its text is its accessible name.
class PaintedButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PaintedButton(QWidget* parent);

    bool isHovered() const { return m_isHovered; }
    bool showsFocusRing() const { return m_showsFocusRing && hasFocus(); }

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void showFocusRing(bool shows);

    bool m_isHovered = false;
    bool m_showsFocusRing = false;
};

// Whether a focus that came for this reason came by keyboard.
bool isKeyboardFocus(Qt::FocusReason reason);

} // namespace orrinvale
