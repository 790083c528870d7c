// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/OverlayScrollArea.h"

#include "orrinvale/Look.h"

#include <QApplication>
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
constexpr auto shownFor = 900;   // milliseconds after the last movement
constexpr auto focusMargin = 20; // room that a focused control keeps to the edge

class Thumb final : public QWidget
{
public:
    using QWidget::QWidget;
    QColor colour = withAlpha(Qt::black, 0.26);

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(rect(), thumbWidth / 2.0, thumbWidth / 2.0);
    }
};

} // namespace

OverlayScrollArea::OverlayScrollArea(QWidget* parent)
    : QScrollArea(parent), m_thumb(new Thumb(this)), m_hide(new QTimer(this))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    m_thumb->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_thumb->hide();
    m_hide->setSingleShot(true);
    QObject::connect(m_hide, &QTimer::timeout, m_thumb, &QWidget::hide);
}

void OverlayScrollArea::setThumbColour(const QColor& colour)
{
    static_cast<Thumb*>(m_thumb)->colour = colour;
}

void OverlayScrollArea::placeThumb()
{
    const auto* bar = verticalScrollBar();
    const auto range = bar->maximum() - bar->minimum();
    if (range <= 0)
        return m_thumb->hide();
    const auto track = height() - 2 * thumbMargin;
    const auto length = std::max(track * bar->pageStep() / (range + bar->pageStep()), shortestThumb);
    const auto top = thumbMargin + (track - length) * (bar->value() - bar->minimum()) / range;
    m_thumb->setGeometry(width() - thumbMargin - thumbWidth, top, thumbWidth, length);
}

void OverlayScrollArea::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    placeThumb();
}

void OverlayScrollArea::scrollContentsBy(int dx, int dy)
{
    QScrollArea::scrollContentsBy(dx, dy);
    placeThumb();
    if (verticalScrollBar()->maximum() > 0) {
        m_thumb->show();
        m_thumb->raise();
        m_hide->start(shownFor);
    }
}

bool OverlayScrollArea::focusNextPrevChild(bool next)
{
    const auto moved = QScrollArea::focusNextPrevChild(next);
    if (auto* focused = QApplication::focusWidget(); moved && focused && isAncestorOf(focused))
        ensureWidgetVisible(focused, 0, focusMargin);
    return moved;
}

} // namespace orrinvale
