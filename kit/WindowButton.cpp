// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowButton.h"

#include "kit/FocusRing.h"
#include "kit/Shapes.h"
#include "kit/Symbols.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orrinvale
{

namespace
{

constexpr auto leastHeight = 28;
constexpr auto verticalPadding = 5; // with the border
constexpr auto textPadding = 12;
constexpr auto symbolPadding = 9;
constexpr auto symbolToText = 6;
constexpr auto unusable = 0.5; // opacity

} // namespace

WindowButton::WindowButton(const QString& text, Kind kind, QWidget* parent)
    : PaintedButton(parent), m_kind(kind), m_style(kind == Kind::filled ? windowText::strongTitle : windowText::button)
{
    setAccessibleName(text);
}

void WindowButton::setColours(const WindowPalette& colours)
{
    m_colours = colours;
    update();
}

void WindowButton::setSymbol(const QString& name, int size)
{
    m_symbol = name;
    m_symbolSize = size;
    update();
}

void WindowButton::setTextStyle(const TextStyle& style)
{
    m_style = style;
    update();
}

QSize WindowButton::shownSize() const
{
    const auto height = std::max(leastHeight, m_style.line() + 2 * verticalPadding);
    if (m_kind == Kind::icon)
        return {height, height};
    const auto text = std::ceil(QFontMetricsF(m_style.font()).horizontalAdvance(accessibleName()));
    const auto before = m_symbol.isEmpty() ? textPadding : symbolPadding + m_symbolSize + symbolToText;
    return {static_cast<int>(text) + before + textPadding + 2, height};
}

QColor WindowButton::ground() const
{
    if (isThreatening())
        return m_colours.dangerWash;
    if (m_kind == Kind::icon)
        return Qt::transparent;
    const auto isDefault = m_kind == Kind::filled;
    if (isEnabled() && isDown())
        return isDefault ? m_colours.defaultButtonPressed : m_colours.buttonPressed;
    if (isEnabled() && isHovered())
        return isDefault ? m_colours.defaultButtonHover : m_colours.buttonHover;
    return isDefault ? m_colours.defaultButton : m_colours.button;
}

QColor WindowButton::ink() const
{
    if (isThreatening())
        return m_colours.danger;
    if (m_kind == Kind::filled)
        return Qt::white;
    return m_kind == Kind::icon ? m_colours.quietText : m_colours.primaryText;
}

QColor WindowButton::outline() const
{
    if (m_kind == Kind::icon)
        return Qt::transparent;
    if (isThreatening())
        return m_colours.danger;
    return m_kind == Kind::filled ? ground() : m_colours.buttonBorder;
}

bool WindowButton::hitButton(const QPoint& position) const
{
    return shownRect(*this).contains(position);
}

void WindowButton::paintContent(QPainter& painter, const QRectF& shown) const
{
    const QSizeF symbol(m_symbolSize, m_symbolSize);
    const auto symbolTop = std::round(shown.center().y() - m_symbolSize / 2.0);
    if (m_kind == Kind::icon) {
        const auto left = std::round(shown.center().x() - m_symbolSize / 2.0);
        return paintSymbol(painter, m_symbol, QRectF(QPointF(left, symbolTop), symbol), ink());
    }
    painter.setFont(m_style.font());
    painter.setPen(ink());
    if (m_symbol.isEmpty())
        return painter.drawText(shown, Qt::AlignCenter | Qt::TextSingleLine, accessibleName());
    const auto left = shown.left() + 1 + symbolPadding;
    paintSymbol(painter, m_symbol, QRectF(QPointF(left, symbolTop), symbol), ink());
    painter.drawText(shown.adjusted(left - shown.left() + m_symbolSize + symbolToText, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, accessibleName());
}

void WindowButton::paintShown(QPainter& painter) const
{
    const QRectF shown = shownRect(*this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground());
    painter.drawRoundedRect(shown, m_radius, m_radius);
    strokeInside(painter, shown, m_radius, 1, outline());
    paintContent(painter, shown);
}

void WindowButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isEnabled()) {
        paintShown(painter);
    } else { // translucent as a whole, not part by part
        QPixmap whole(size() * devicePixelRatioF());
        whole.setDevicePixelRatio(devicePixelRatioF());
        whole.fill(Qt::transparent);
        QPainter opaque(&whole);
        paintShown(opaque);
        opaque.end();
        painter.setOpacity(unusable);
        painter.drawPixmap(0, 0, whole);
    }
    if (showsFocusRing())
        paintFocusRing(painter, QRectF(shownRect(*this)), m_radius, m_colours.focusRing);
}

} // namespace orrinvale
