// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/PointList.h"

#include "kit/Symbols.h"
#include "kit/TextLabel.h"
#include "kit/WindowText.h"

#include <QPainter>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto badgeSize = 40;
constexpr auto badgeRadius = 10.0;
constexpr auto symbolSize = 22;
constexpr auto badgeToText = 16;
constexpr auto textLeft = badgeSize + badgeToText;
constexpr auto titleToBody = 2;
constexpr auto pointGap = 28;

} // namespace

PointList::PointList(std::span<const Point> points, QWidget* parent) : QWidget(parent)
{
    for (const auto& point : points) {
        const Labels labels{point.icon, new TextLabel(this), new TextLabel(this)};
        labels.title->setContent(point.title);
        labels.body->setContent(point.body);
        m_labels.push_back(labels);
    }
}

void PointList::applyTheme(const WindowPalette& colours)
{
    m_colours = colours;
    for (const auto& labels : m_labels) {
        applyTextStyle(*labels.title, windowText::strongTitle, colours.primaryText);
        applyTextStyle(*labels.body, windowText::body, colours.quietText);
    }
    layOut();
    update();
}

int PointList::pointHeight(const Labels& point, int width) const
{
    const auto title = point.title->heightFor(width - textLeft, windowText::strongTitle.line());
    const auto body = point.body->heightFor(width - textLeft, windowText::body.line());
    return std::max(badgeSize, title + titleToBody + body);
}

int PointList::heightFor(int width) const
{
    auto height = pointGap * (static_cast<int>(m_labels.size()) - 1);
    for (const auto& point : m_labels)
        height += pointHeight(point, width);
    return height;
}

void PointList::layOut()
{
    auto top = 0;
    for (const auto& point : m_labels) {
        const auto textWidth = width() - textLeft;
        const auto title = point.title->heightFor(textWidth, windowText::strongTitle.line());
        point.title->setGeometry(textLeft, top, textWidth, title);
        point.body->setGeometry(textLeft, top + title + titleToBody, textWidth,
                                point.body->heightFor(textWidth, windowText::body.line()));
        top += pointHeight(point, width()) + pointGap;
    }
}

void PointList::resizeEvent(QResizeEvent*)
{
    layOut();
}

void PointList::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colours.symbolWash);
    for (const auto& point : m_labels) {
        const QRectF badge(0, point.title->y(), badgeSize, badgeSize);
        painter.drawRoundedRect(badge, badgeRadius, badgeRadius);
        constexpr auto inset = (badgeSize - symbolSize) / 2.0;
        paintSymbol(painter, point.icon, badge.adjusted(inset, inset, -inset, -inset), m_colours.symbol);
    }
}

} // namespace orrinvale
