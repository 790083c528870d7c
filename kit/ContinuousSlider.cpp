// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/ContinuousSlider.h"

#include "kit/FocusRing.h"
#include "kit/PaintedButton.h"
#include "kit/Shapes.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto knobSize = 20.0;
constexpr auto restHeight = 2.0;
constexpr auto doneHeight = 4.0;
constexpr auto rimWidth = 1.5;
constexpr auto smallStep = 0.01;
constexpr auto largeStep = 0.1;

class SliderInterface final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit SliderInterface(ContinuousSlider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return slider()->value(); }
    void setCurrentValue(const QVariant& value) override { slider()->moveTo(value.toDouble()); }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return 1.0; }
    QVariant minimumStepSize() const override { return smallStep; }

private:
    ContinuousSlider* slider() const { return static_cast<ContinuousSlider*>(object()); }
};

} // namespace

QAccessibleInterface* accessibleSlider(ContinuousSlider* slider)
{
    return new SliderInterface(slider);
}

ContinuousSlider::ContinuousSlider(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void ContinuousSlider::setValue(double value)
{
    m_value = value;
    update();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, value);
        QAccessible::updateAccessibility(&event);
    }
}

void ContinuousSlider::setColours(const WindowPalette& colours)
{
    m_colours = colours;
    update();
}

double ContinuousSlider::drawnValue() const
{
    return std::clamp(m_value, 0.0, 1.0);
}

QRectF ContinuousSlider::knobRect() const
{
    const QRectF shown = shownRect(*this);
    return {shown.left() + (shown.width() - knobSize) * drawnValue(), shown.center().y() - knobSize / 2, knobSize,
            knobSize};
}

double ContinuousSlider::valueAt(double x) const
{
    const QRectF shown = shownRect(*this);
    return (x - shown.left() - knobSize / 2) / std::max(shown.width() - knobSize, 1.0);
}

void ContinuousSlider::moveTo(double value)
{
    setValue(std::clamp(value, 0.0, 1.0));
    if (onChange)
        onChange(m_value);
}

void ContinuousSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_showsFocusRing = false;
    const auto knob = knobRect();
    const auto holdsKnob = knob.contains(event->position());
    m_grip = holdsKnob ? event->position().x() - knob.center().x() : 0;
    if (!holdsKnob)
        moveTo(valueAt(event->position().x()));
    update();
}

void ContinuousSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        moveTo(valueAt(event->position().x() - m_grip));
}

void ContinuousSlider::keyPressEvent(QKeyEvent* event)
{
    const auto isMirrored = layoutDirection() == Qt::RightToLeft;
    auto wanted = drawnValue();
    switch (event->key()) {
    case Qt::Key_Left:
        wanted += isMirrored ? smallStep : -smallStep;
        break;
    case Qt::Key_Right:
        wanted += isMirrored ? -smallStep : smallStep;
        break;
    case Qt::Key_Down:
        wanted -= smallStep;
        break;
    case Qt::Key_Up:
        wanted += smallStep;
        break;
    case Qt::Key_PageDown:
        wanted -= largeStep;
        break;
    case Qt::Key_PageUp:
        wanted += largeStep;
        break;
    case Qt::Key_Home:
        wanted = 0;
        break;
    case Qt::Key_End:
        wanted = 1;
        break;
    default:
        return event->ignore();
    }
    m_showsFocusRing = true;
    moveTo(wanted);
}

void ContinuousSlider::focusInEvent(QFocusEvent* event)
{
    m_showsFocusRing = isKeyboardFocus(event->reason());
    update();
}

void ContinuousSlider::focusOutEvent(QFocusEvent*)
{
    update();
}

void ContinuousSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF shown = shownRect(*this);
    const auto knob = knobRect();
    const auto line = [&](double right, double thickness, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawRoundedRect(
            QRectF(shown.left(), shown.center().y() - thickness / 2, right - shown.left(), thickness), thickness / 2,
            thickness / 2);
    };
    line(shown.right(), restHeight, m_colours.controlBorder);
    line(knob.center().x(), doneHeight, m_colours.controlOn);
    painter.setBrush(Qt::white);
    painter.drawEllipse(knob);
    strokeInside(painter, knob, knobSize / 2, rimWidth, m_colours.controlOn);
    if (m_showsFocusRing && hasFocus())
        paintFocusRing(painter, knob, knobSize / 2, m_colours.focusRing);
}

} // namespace orrinvale
