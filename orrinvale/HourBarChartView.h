// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <vector>

namespace orrinvale
{

class LocalCalendar;
struct DayDetail;

// One bar an hour, as high as something was active in it. Main thread.
class HourBarChartView final : public QWidget
{
    Q_OBJECT

public:
    HourBarChartView(const LocalCalendar& calendar, QWidget* parent);

    void show(const DayDetail& detail);
    void setTheme(bool isDark, bool isSakura);

    const std::vector<double>& buckets() const { return m_buckets; } // seconds per hour
    QColor barColour() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const LocalCalendar& m_calendar;
    std::vector<double> m_buckets;
    bool m_isDark = false;
    bool m_isSakura = false;
};

} // namespace orrinvale
