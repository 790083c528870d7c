// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ModeToggleButton.h"

#include "kit/Shapes.h"
#include "kit/Typography.h"

#include <QPainter>

namespace orrinvale
{

namespace
{

constexpr auto cornerRadius = 8.0;
constexpr auto hoverAlpha = 0.10;
constexpr auto pressAlpha = 0.18;
constexpr auto leastWidth = 30;

} // namespace

ModeToggleButton::ModeToggleButton(const QString& title, QWidget* parent) : PaintedButton(parent)
{
    setText(title);
    setAccessibleName(title);
    setCheckable(true);
    setAutoExclusive(true); // which makes it a radio button
    setMinimumWidth(leastWidth);
    QObject::connect(this, &QAbstractButton::clicked, this, &ModeToggleButton::tap);
    // Assistive technology checks a radio button instead of clicking it.
    QObject::connect(this, &QAbstractButton::toggled, this, [this](bool isNowChecked) {
        if (isNowChecked && !m_isSelected)
            tap();
    });
}

void ModeToggleButton::tap()
{
    if (onTap)
        onTap();
}

void ModeToggleButton::setColours(const Colours& colours)
{
    m_colours = colours;
    update();
}

void ModeToggleButton::setSelected(bool isSelected)
{
    m_isSelected = isSelected;
    setChecked(isSelected);
    setFocusPolicy(isSelected ? Qt::StrongFocus : Qt::ClickFocus);
    update();
}

void ModeToggleButton::setLabel(double pixels, Label label)
{
    m_fontPixels = pixels;
    m_label = label;
    update();
}

QFont ModeToggleButton::labelFont() const
{
    return scaledFont(m_fontPixels, isSelected() ? QFont::DemiBold : QFont::Medium, 0, 1);
}

QColor ModeToggleButton::background() const
{
    if (isSelected())
        return m_colours.selectedColor;
    if (isDown())
        return withAlpha(m_colours.highlight, pressAlpha);
    return isHovered() ? withAlpha(m_colours.highlight, hoverAlpha) : QColor(Qt::transparent);
}

QColor ModeToggleButton::textColour() const
{
    return isSelected() ? QColor(Qt::white) : m_colours.textColor;
}

void ModeToggleButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(background());
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    painter.setFont(labelFont());
    painter.setPen(textColour());
    const auto flow = m_label == Label::wrapped ? Qt::TextWordWrap : Qt::TextSingleLine;
    painter.drawText(rect(), Qt::AlignCenter | flow, text());
}

} // namespace orrinvale
