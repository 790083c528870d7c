// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/SymbolBadge.h"

#include "kit/Symbols.h"

#include <QPainter>

namespace orrinvale
{

SymbolBadge::SymbolBadge(double cornerRadius, double symbolPoints, QWidget* parent)
    : QWidget(parent), m_cornerRadius(cornerRadius), m_symbolPoints(symbolPoints), m_ground(Qt::transparent),
      m_symbolColour(Qt::white)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SymbolBadge::setSymbol(const QString& name)
{
    m_symbol = name;
    update();
}

void SymbolBadge::setColours(const QColor& ground, const QColor& symbol)
{
    m_ground = ground;
    m_symbolColour = symbol;
    update();
}

void SymbolBadge::setSymbolPoints(double points)
{
    m_symbolPoints = points;
    update();
}

void SymbolBadge::setCornerRadius(double radius)
{
    m_cornerRadius = radius;
    update();
}

void SymbolBadge::setOpacity(double opacity)
{
    m_opacity = opacity;
    update();
}

void SymbolBadge::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_ground);
    painter.drawRoundedRect(rect(), m_cornerRadius, m_cornerRadius);
    QRectF square(0, 0, m_symbolPoints, m_symbolPoints);
    square.moveCenter(QRectF(rect()).center());
    paintSymbol(painter, m_symbol, square, m_symbolColour);
}

} // namespace orrinvale
