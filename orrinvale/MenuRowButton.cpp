// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/MenuRowButton.h"

#include "kit/Colours.h"
#include "kit/Look.h"
#include "kit/Shapes.h"
#include "kit/Symbols.h"
#include "kit/TextLabel.h"
#include "kit/Typography.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orrinvale
{

namespace
{

constexpr auto inset = 14;
constexpr auto badgeRadius = 8.0;
constexpr auto chevronSize = 16;
constexpr auto chevronRight = 14; // from the row's right edge
constexpr auto badgeToText = 12;
constexpr auto textToChevron = 22;
constexpr auto titlePixels = 13.0;
constexpr auto subtitlePixels = 11.0;
constexpr auto titleLine = 18.0;
constexpr auto subtitleLine = 16.0;
constexpr auto hoverAlpha = 0.08;
constexpr auto pressAlpha = 0.16;

int scaled(double pixels, double scale)
{
    return static_cast<int>(std::lround(pixels * scale));
}

} // namespace

MenuRowButton::MenuRowButton(const QString& title, const QString& subtitle, const QString& symbol, Line line,
                             QWidget* parent)
    : PaintedButton(parent), m_symbol(symbol), m_line(line), m_titleLabel(new TextLabel(this)),
      m_subtitleLabel(new TextLabel(this))
{
    setAccessibleName(title);
    setAccessibleDescription(subtitle);
    for (auto* label : {m_titleLabel, m_subtitleLabel})
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_titleLabel->setContent(title);
    m_subtitleLabel->setContent(subtitle);
    setScale(1);
    QObject::connect(this, &QAbstractButton::clicked, this, [this] {
        if (action)
            action(*this);
    });
}

void MenuRowButton::setColours(const Colours& colours)
{
    m_colours = colours;
    m_titleLabel->setColour(colours.primary);
    m_subtitleLabel->setColour(colours.secondary);
    update();
}

void MenuRowButton::setCornerRadii(double top, double bottom)
{
    m_topRadius = top;
    m_bottomRadius = bottom;
    update();
}

void MenuRowButton::setScale(double scale)
{
    m_scale = scale;
    m_titleLabel->setStyle(scaledFont(titlePixels, QFont::Medium, 0, scale), m_colours.primary);
    m_subtitleLabel->setStyle(scaledFont(subtitlePixels, QFont::Normal, 0, scale), m_colours.secondary);
    m_titleLabel->setLineHeight(scaled(titleLine, scale));
    m_subtitleLabel->setLineHeight(scaled(subtitleLine, scale));
    layOut();
}

int MenuRowButton::badgeSize() const
{
    return scaled(32 + 16 * (m_scale - 1), 1);
}

int MenuRowButton::textLeft() const
{
    return inset + badgeSize() + badgeToText;
}

int MenuRowButton::textWidth(int width) const
{
    return width - chevronRight - chevronSize - textToChevron - textLeft();
}

int MenuRowButton::textHeight(int width) const
{
    return m_titleLabel->heightFor(textWidth(width), scaled(titleLine, m_scale)) +
           m_subtitleLabel->heightFor(textWidth(width), scaled(subtitleLine, m_scale));
}

int MenuRowButton::heightFor(int width) const
{
    return (22 + textHeight(width) + 3) / 4 * 4;
}

void MenuRowButton::layOut()
{
    const auto titleHeight = m_titleLabel->heightFor(textWidth(width()), scaled(titleLine, m_scale));
    const auto top = (height() - textHeight(width())) / 2;
    m_titleLabel->setGeometry(textLeft(), top, textWidth(width()), titleHeight);
    m_subtitleLabel->setGeometry(textLeft(), top + titleHeight, textWidth(width()), textHeight(width()) - titleHeight);
}

void MenuRowButton::resizeEvent(QResizeEvent* event)
{
    PaintedButton::resizeEvent(event);
    layOut();
}

QColor MenuRowButton::background() const
{
    if (isDown())
        return withAlpha(m_colours.highlight, pressAlpha);
    return isHovered() ? withAlpha(m_colours.highlight, hoverAlpha) : m_colours.bgColor;
}

void MenuRowButton::paintGround(QPainter& painter)
{
    painter.fillPath(roundedPath(rect(), m_topRadius, m_bottomRadius), background());
    if (m_line == Line::above)
        painter.fillRect(QRect(textLeft(), 0, width() - textLeft(), 1), m_colours.separatorColor);
}

void MenuRowButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    const QRectF badge(inset, (height() - badgeSize()) / 2, badgeSize(), badgeSize());
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colours.tint);
    painter.drawRoundedRect(badge, badgeRadius, badgeRadius);
    const auto symbolInset = (badgeSize() - scaled(20, m_scale)) / 2.0;
    paintSymbol(painter, m_symbol, badge.adjusted(symbolInset, symbolInset, -symbolInset, -symbolInset),
                m_colours.iconColor);
    const QRectF chevron(width() - chevronRight - chevronSize, (height() - chevronSize) / 2, chevronSize, chevronSize);
    paintSymbol(painter, QStringLiteral("chevron.right"), chevron, m_colours.chevron);
    if (showsFocusRing())
        strokeInside(painter, QRectF(rect()).adjusted(3, 3, -3, -3), 9, 2, m_colours.focusRing);
}

} // namespace orrinvale
