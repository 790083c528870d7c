// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"

#include <QWidget>

#include <functional>

class QAccessibleInterface;

namespace orrinvale
{

// A slider over 0 to 1 without steps. A value outside is kept as it is and drawn at the nearer end, until the user
// moves the knob. It shows itself inside room for a focus ring; see FocusRing.h.
class ContinuousSlider final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int shownHeight = 20;

    explicit ContinuousSlider(QWidget* parent);

    // `onChange` hears nothing of it.
    void setValue(double value);
    double value() const { return m_value; }
    void setColours(const WindowPalette& colours);
    // The knob as it is drawn, in this widget.
    QRectF knobRect() const;
    // As the user would.
    void moveTo(double value);

    // Called with each value that the user chose, from 0 to 1.
    std::function<void(double)> onChange;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    double valueAt(double x) const;
    double drawnValue() const;

    WindowPalette m_colours;
    double m_value = 0;
    double m_grip = 0; // from the knob's middle to where the mouse holds it
    bool m_showsFocusRing = false;
};

// What assistive technology reads and moves it by; the caller owns it.
QAccessibleInterface* accessibleSlider(ContinuousSlider* slider);

} // namespace orrinvale
