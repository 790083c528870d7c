// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HourBarChartView.h"

#include "kit/Shapes.h"
#include "kit/WindowPalette.h"
#include "orrinvale/ActivityPalette.h"
#include "orrinvale/DayDetail.h"
#include "orrinvale/HourBars.h"

#include <QPainter>

namespace orrinvale
{

HourBarChartView::HourBarChartView(const LocalCalendar& calendar, QWidget* parent)
    : QWidget(parent), m_calendar(calendar), m_buckets(24)
{
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
