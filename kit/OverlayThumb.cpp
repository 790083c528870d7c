// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/OverlayThumb.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto thumbWidth = 6;
constexpr auto thumbMargin = 4;
constexpr auto shortestThumb = 24;
constexpr auto shownFor = 900; // milliseconds after the last movement

} // namespace

OverlayThumb::OverlayThumb(QAbstractScrollArea* area, Shows when)
    : QWidget(area), m_area(*area), m_when(when), m_hide(new QTimer(this))
{
    if (when == Shows::whileScrolling)
        setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    m_hide->setSingleShot(true);
    QObject::connect(m_hide, &QTimer::timeout, this, &QWidget::hide);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->installEventFilter(this);
    QObject::connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { place(); });
    QObject::connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        place();
        reveal();
    });
}

void OverlayThumb::setColour(const QColor& colour)
{
    m_colour = colour;
    update();
}

void OverlayThumb::setFrameWidth(int pixels)
{
    m_frameWidth = pixels;
    place();
}

int OverlayThumb::range() const
{
    return m_area.verticalScrollBar()->maximum() - m_area.verticalScrollBar()->minimum();
}

int OverlayThumb::trackTop() const
{
    return m_frameWidth + thumbMargin;
}

int OverlayThumb::trackLength() const
{
    return m_area.height() - 2 * trackTop();
}

int OverlayThumb::length() const
{
    const auto page = m_area.viewport()->height(); // the bar's page step is set after its range
    return std::max(static_cast<int>(std::int64_t{trackLength()} * page / (range() + page)), shortestThumb);
}

QRect OverlayThumb::shownRect() const
{
    return geometry().adjusted(thumbMargin, 0, -thumbMargin, 0);
}

void OverlayThumb::place()
{
    if (range() <= 0)
        return hide();
    const auto& bar = *m_area.verticalScrollBar();
    const auto moved = static_cast<int>(std::int64_t{travel()} * (bar.value() - bar.minimum()) / range());
    const auto width = thumbWidth + 2 * thumbMargin;
    setGeometry(m_area.width() - m_frameWidth - width, trackTop() + moved, width, length());
    if (m_when == Shows::wheneverThereIsMore)
        reveal();
}

void OverlayThumb::reveal()
{
    if (range() <= 0)
        return;
    show();
    raise();
    if (m_when == Shows::whileScrolling)
        m_hide->start(shownFor);
}

bool OverlayThumb::eventFilter(QObject* object, QEvent* event)
{
    if (object == &m_area && event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(object, event);
}

void OverlayThumb::mousePressEvent(QMouseEvent* event)
{
    m_grasp = event->pos().y();
}

void OverlayThumb::mouseMoveEvent(QMouseEvent* event)
{
    if (travel() <= 0)
        return;
    auto& bar = *m_area.verticalScrollBar();
    const auto moved = std::clamp(mapToParent(event->pos()).y() - m_grasp - trackTop(), 0, travel());
    bar.setValue(bar.minimum() + static_cast<int>(std::int64_t{range()} * moved / travel()));
}

void OverlayThumb::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colour);
    painter.drawRoundedRect(rect().adjusted(thumbMargin, 0, -thumbMargin, 0), thumbWidth / 2.0, thumbWidth / 2.0);
}

} // namespace orrinvale
