// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DayDetailView.h"

#include "kit/OverlayScrollArea.h"
#include "kit/Shapes.h"
#include "kit/TextLabel.h"
#include "kit/VisibleText.h"
#include "kit/WindowPalette.h"
#include "kit/WindowText.h"
#include "orrinvale/ActivityPalette.h"
#include "orrinvale/AdaptiveView.h"
#include "orrinvale/DayDetail.h"
#include "orrinvale/HourBarChartView.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orrinvale
{

namespace
{

// From the inside of the card's outline.
constexpr auto paddingTop = 11;
constexpr auto paddingSide = 19;
constexpr auto paddingBottom = 13;
constexpr auto gap = 16; // around the chart
constexpr auto dividerToRows = 8;
constexpr auto shownRows = 6; // what room is kept for
constexpr auto lowestChart = 48;
constexpr auto highestChart = 240;
constexpr auto nameToTime = 16;

int rowHeight()
{
    return std::max(24, withText(22));
}

int headHeight()
{
    return std::max(24, withText(24));
}

// Where the text's baseline lies in a label of that height.
double baselineIn(const TextLabel& label, double height)
{
    const QFontMetricsF metrics(label.font());
    return (height - metrics.height()) / 2 + metrics.ascent();
}

} // namespace

DayDetailView::DayDetailView(const Clock& clock, const LocalCalendar& calendar, QWidget* parent)
    : QWidget(parent), m_clock(clock), m_calendar(calendar), m_scrollArea(new OverlayScrollArea(this)),
      m_content(new QWidget), m_dateLabel(new TextLabel(m_content)),
      m_totalLabel(new TextLabel(m_content, Qt::ElideRight)), m_barChart(new HourBarChartView(calendar, m_content)),
      m_divider(new AdaptiveView([this] { return WindowPalette::of(lookOf(m_isDark, m_isSakura)).border; }, m_content)),
      m_emptyLabel(new TextLabel(m_content))
{
    m_scrollArea->setWidget(m_content);
    m_content->setAutoFillBackground(false);
    m_dateLabel->setWordWrap(false);
    m_totalLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_emptyLabel->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    m_emptyLabel->setContent(QString::fromUtf8(noActivityText));
    update(clock.now(), std::nullopt, false, false);
}

void DayDetailView::update(Instant date, const std::optional<DayUsageRecord>& record, bool isDark, bool isSakura)
{
    const auto detail = dayDetail(date, record, m_clock.now(), m_calendar);
    m_isToday = detail.isToday;
    m_isEmpty = detail.isEmpty;
    m_dateLabel->setContent(QString::fromStdString(detail.heading));
    m_totalLabel->setContent(QString::fromStdString(detail.total));
    m_barChart->show(detail);
    m_emptyLabel->setVisible(detail.isEmpty);
    setRowCount(detail.apps.size());
    for (std::size_t i = 0; i < detail.apps.size(); ++i) {
        m_appRows[i].name->setContent(visibleText(detail.apps[i].name));
        m_appRows[i].time->setContent(QString::fromStdString(detail.apps[i].duration));
    }
    setTheme(isDark, isSakura);
}

void DayDetailView::setRowCount(std::size_t count)
{
    while (m_appRows.size() > count) {
        delete m_appRows.back().name;
        delete m_appRows.back().time;
        m_appRows.pop_back();
    }
    while (m_appRows.size() < count) {
        const AppRow row{new TextLabel(m_content, Qt::ElideRight), new TextLabel(m_content)};
        row.time->setWordWrap(false);
        row.time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.name->show();
        row.time->show();
        m_appRows.push_back(row);
    }
}

void DayDetailView::setTheme(bool isDark, bool isSakura)
{
    m_isDark = isDark;
    m_isSakura = isSakura;
    m_barChart->setTheme(isDark, isSakura);
    applyStyle();
    layOut();
    update();
}

void DayDetailView::applyStyle()
{
    const auto& window = WindowPalette::of(lookOf(m_isDark, m_isSakura));
    const auto activity = ActivityPalette::of(m_isDark, m_isSakura);
    m_scrollArea->setThumbColour(window.scrollThumb);
    applyTextStyle(*m_dateLabel, m_isToday ? windowText::sectionHead : windowText::dateHead, window.quietText);
    applyTextStyle(*m_totalLabel, windowText::dayTotal, m_isEmpty ? window.quietText : window.primaryText);
    applyTextStyle(*m_emptyLabel, windowText::rowTitle, window.quietText);
    for (const auto& row : m_appRows) {
        applyTextStyle(*row.name, windowText::rowTitle, activity.appName);
        applyTextStyle(*row.time, windowText::rowTitle, activity.appTime);
    }
    m_divider->update();
}

void DayDetailView::layOutHead(int width)
{
    const auto head = headHeight();
    const auto dateWidth = std::min(m_dateLabel->naturalWidth() + 1, width * 2 / 3);
    const auto dateHeight = windowText::sectionHead.line();
    const auto dateTop = baselineIn(*m_totalLabel, head) - baselineIn(*m_dateLabel, dateHeight);
    m_dateLabel->setGeometry(paddingSide, paddingTop + static_cast<int>(std::lround(dateTop)), dateWidth, dateHeight);
    const auto totalLeft = paddingSide + dateWidth + gap;
    m_totalLabel->setGeometry(totalLeft, paddingTop, paddingSide + width - totalLeft, head);
}

void DayDetailView::layOutRows(int top, int width)
{
    const auto height = rowHeight();
    m_emptyLabel->setGeometry(paddingSide, top, width, shownRows * height);
    for (const auto& row : m_appRows) {
        const auto timeWidth = row.time->naturalWidth() + 1;
        row.time->setGeometry(paddingSide + width - timeWidth, top, timeWidth, height);
        row.name->setGeometry(paddingSide, top, width - timeWidth - nameToTime, height);
        top += height;
    }
}

void DayDetailView::layOut()
{
    const auto inner = rect().adjusted(1, 1, -1, -1);
    m_scrollArea->setGeometry(inner);
    const auto around =
        paddingTop + headHeight() + 2 * gap + 1 + dividerToRows + shownRows * rowHeight() + paddingBottom;
    const auto chart = std::clamp(inner.height() - around, lowestChart, highestChart);
    m_content->resize(inner.width(), std::max(around + chart, inner.height()));
    const auto width = inner.width() - 2 * paddingSide;
    layOutHead(width);
    const auto chartTop = paddingTop + headHeight() + gap;
    m_barChart->setGeometry(paddingSide, chartTop, width, chart);
    const auto dividerTop = chartTop + chart + gap;
    m_divider->setGeometry(paddingSide, dividerTop, width, 1);
    layOutRows(dividerTop + 1 + dividerToRows, width);
}

void DayDetailView::resizeEvent(QResizeEvent*)
{
    layOut();
}

void DayDetailView::paintEvent(QPaintEvent*)
{
    const auto& colours = WindowPalette::of(lookOf(m_isDark, m_isSakura));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintCard(painter, rect(), colours.card, colours.border);
}

} // namespace orrinvale
