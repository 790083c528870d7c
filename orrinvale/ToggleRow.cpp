// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ToggleRow.h"

#include "kit/FocusRing.h"
#include "kit/Shapes.h"
#include "orrinvale/RowText.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QVariantAnimation>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto switchWidth = 36;
constexpr auto switchHeight = 20;
constexpr auto turnMilliseconds = 120;
constexpr auto onKnob = 16.0;
constexpr auto offKnob = 12.0;
constexpr auto edgeToOnKnob = 2.0;
constexpr auto edgeToOffKnob = 4.0;

double between(double off, double on, double position)
{
    return off + (on - off) * position;
}

QColor between(const QColor& off, const QColor& on, double position)
{
    return blended(off, withAlpha(on, position));
}

} // namespace

ToggleRow::ToggleRow(const QString& title, const QString& subtitle, QWidget* parent)
    : PaintedButton(parent), m_text(new RowText(title, subtitle, this)), m_animation(new QVariantAnimation(this))
{
    setCheckable(true);
    setAccessibleName(title);
    setAccessibleDescription(subtitle);
    m_text->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_animation->setDuration(turnMilliseconds);
    QObject::connect(m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_position = value.toDouble();
        update();
    });
    // Assistive technology toggles a switch instead of clicking it.
    QObject::connect(this, &QAbstractButton::toggled, this, [this](bool isOn) {
        moveKnob();
        if (onToggle)
            onToggle(isOn);
    });
}

void ToggleRow::setOn(bool isOn)
{
    if (isOn == isChecked())
        return;
    {
        const QSignalBlocker silence(this);
        setChecked(isOn);
    }
    moveKnob();
}

void ToggleRow::setSubtitle(const QString& subtitle)
{
    m_text->setSubtitle(subtitle);
    setAccessibleDescription(subtitle);
    layOut();
}

void ToggleRow::moveKnob()
{
    m_animation->stop();
    if (!m_isAnimated || !isVisible()) {
        m_position = isChecked();
        return update();
    }
    m_animation->setStartValue(m_position);
    m_animation->setEndValue(isChecked() ? 1.0 : 0.0);
    m_animation->start();
}

QRect ToggleRow::switchRect() const
{
    return {width() - settingsGrid::cardPadding - switchWidth, (height() - switchHeight) / 2, switchWidth,
            switchHeight};
}

int ToggleRow::heightFor(int width) const
{
    const auto textWidth = width - 2 * settingsGrid::cardPadding - settingsGrid::textToControl - switchWidth;
    return std::max(settingsGrid::leastRow, m_text->heightFor(textWidth) + 2 * settingsGrid::rowPadding);
}

void ToggleRow::applyTheme(const WindowPalette& colours)
{
    m_colours = colours;
    m_text->applyTheme(colours);
    layOut();
    update();
}

void ToggleRow::layOut()
{
    const auto left = settingsGrid::cardPadding;
    const auto textWidth = switchRect().left() - settingsGrid::textToControl - left;
    const auto textHeight = m_text->heightFor(textWidth);
    m_text->setGeometry(left, (height() - textHeight) / 2, textWidth, textHeight);
}

void ToggleRow::resizeEvent(QResizeEvent*)
{
    layOut();
}

void ToggleRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = switchRect();
    const auto radius = switchHeight / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(between(m_colours.controlOff, m_colours.controlOn, m_position));
    painter.drawRoundedRect(track, radius, radius);
    strokeInside(painter, track, radius, 1, between(m_colours.controlBorder, m_colours.controlOn, m_position));
    const auto knob = between(offKnob, onKnob, m_position);
    const auto left = between(edgeToOffKnob, switchWidth - edgeToOnKnob - onKnob, m_position);
    painter.setPen(Qt::NoPen);
    painter.setBrush(between(m_colours.controlBorder, Qt::white, m_position));
    painter.drawEllipse(QRectF(track.left() + left, track.top() + (switchHeight - knob) / 2, knob, knob));
    if (showsFocusRing())
        paintFocusRing(painter, track, radius, m_colours.focusRing);
}

} // namespace orrinvale
