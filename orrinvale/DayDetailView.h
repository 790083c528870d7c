// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "orrinvale/DayUsageRecord.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace orrinvale
{

class AdaptiveView;
class Clock;
class HourBarChartView;
class LocalCalendar;
class OverlayScrollArea;
class TextLabel;
struct DayDetail;

// A card with one day's usage: heading and total, a bar per hour, and the apps with the most time. What does not fit
// scrolls. Main thread.
class DayDetailView final : public QWidget
{
    Q_OBJECT

public:
    struct AppRow {
        TextLabel* name;
        TextLabel* time;
    };

    DayDetailView(const Clock& clock, const LocalCalendar& calendar, QWidget* parent);

    using QWidget::update;
    void update(Instant date, const std::optional<DayUsageRecord>& record, bool isDark, bool isSakura);
    void setTheme(bool isDark, bool isSakura);

    TextLabel& dateLabel() const { return *m_dateLabel; }
    TextLabel& totalLabel() const { return *m_totalLabel; }
    TextLabel& emptyLabel() const { return *m_emptyLabel; }
    HourBarChartView& barChart() const { return *m_barChart; }
    const std::vector<AppRow>& appRows() const { return m_appRows; }
    OverlayScrollArea& scrollArea() const { return *m_scrollArea; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setRowCount(std::size_t count);
    void applyStyle();
    void layOut();
    void layOutHead(int width);
    void layOutRows(int top, int width);

    const Clock& m_clock;
    const LocalCalendar& m_calendar;
    OverlayScrollArea* m_scrollArea;
    QWidget* m_content;
    TextLabel* m_dateLabel;
    TextLabel* m_totalLabel;
    HourBarChartView* m_barChart;
    AdaptiveView* m_divider;
    TextLabel* m_emptyLabel;
    std::vector<AppRow> m_appRows;
    bool m_isToday = true;
    bool m_isEmpty = true;
    bool m_isDark = false;
    bool m_isSakura = false;
};

} // namespace orrinvale
