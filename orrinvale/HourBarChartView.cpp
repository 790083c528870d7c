// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HourBarChartView.h"

#include "orrinvale/DayDetail.h"
#include "orrinvale/HourBars.h"
#include "orrinvale/Shapes.h"
#include "orrinvale/TextLabel.h"
#include "orrinvale/WindowPalette.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace orrinvale
{

HourBarChartView::HourBarChartView(const LocalCalendar& calendar, QWidget* parent)
    : QWidget(parent), m_calendar(calendar), m_buckets(24)
{
    setMouseTracking(true); // so that a tooltip hears that the pointer has left its hour
}

void HourBarChartView::show(const DayDetail& detail)
{
    m_buckets = detail.buckets;
    setAccessibleName(QString::fromStdString(hourChartText(detail, m_calendar)));
    update();
}

void HourBarChartView::setTheme(bool isDark, bool isSakura)
{
    m_isDark = isDark;
    m_isSakura = isSakura;
    update();
}

QColor HourBarChartView::barColour() const
{
    return ActivityPalette::of(m_isDark, m_isSakura).bar;
}

bool HourBarChartView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const Point middleOfPixel{help->x() + 0.5, height() - help->y() - 0.5};
    const HourBars chart(m_buckets, width(), height());
    if (const auto hour = chart.hourAt(middleOfPixel)) {
        const auto index = static_cast<std::size_t>(*hour);
        const auto text = hourBarText(*hour, m_buckets[index], m_calendar);
        const QRectF column(chart.bars[index].x, 0, chart.bars[index].width, height());
        QToolTip::showText(help->globalPos(), plainToolTip(QString::fromStdString(text)), this, column.toAlignedRect());
    } else {
        QToolTip::hideText();
    }
    return true;
}

void HourBarChartView::paintEvent(QPaintEvent*)
{
    const HourBars chart(m_buckets, width(), height());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(barColour());
    for (const auto& bar : chart.bars) {
        const auto onScreen = bar.flipped(height());
        const auto radius = chart.cornerRadius(bar);
        const QRectF place(onScreen.x, onScreen.y, onScreen.width, onScreen.height);
        painter.drawRoundedRect(snapped(painter, place), radius, radius);
    }
}

} // namespace orrinvale
