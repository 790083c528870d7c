// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"
#include "orrinvale/ActivityPalette.h"
#include "orrinvale/HeatmapLayout.h"

#include <QWidget>

#include <functional>

namespace orrinvale
{

class Clock;

// The calendar of the last 17 weeks, on a card of its own: each day is shaded by how often the machine became awake on
// it. A click selects a day, and so do the arrow keys, Home and End. Each day is an accessible child. Main thread.
class HeatmapView final : public QWidget
{
    Q_OBJECT

public:
    HeatmapView(const Clock& clock, const LocalCalendar& calendar, QWidget* parent);

    void setEntries(std::vector<ActivityEntry> entries);
    void setSelectedDate(Instant date);
    void setTheme(bool isDark, bool isSakura);

    std::function<void(Instant)> onSelectDay;

    const std::vector<ActivityEntry>& entries() const { return m_entries; }
    Instant selectedDate() const { return m_selectedDate; }
    bool isDark() const { return m_isDark; }
    bool isSakura() const { return m_isSakura; }
    // The days of the last drawing and where they are, the origin at the bottom left; empty before the first one.
    const std::vector<HeatmapCell>& cellRects() const { return m_cellRects; }
    // In this widget's own coordinates.
    QRectF cellOnScreen(const HeatmapCell& cell) const;
    QString tooltipOf(const HeatmapCell& cell) const;
    bool isSelected(const HeatmapCell& cell) const;
    void selectDay(Instant date);
    bool showsFocusRing() const { return m_showsFocusRing && hasFocus(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void recount();
    const HeatmapCell* cellAt(const QPointF& position) const;
    QRectF flipped(const Rect& rect) const;
    void paintLabel(QPainter& painter, const HeatmapLabel& label) const;
    void paintCells(QPainter& painter, const ActivityPalette& colours) const;
    void paintSelection(QPainter& painter, const HeatmapLayout& layout, const ActivityPalette& colours) const;
    void paintLegend(QPainter& painter, const ActivityPalette& colours) const;
    void announceSelection();

    const Clock& m_clock;
    const LocalCalendar& m_calendar;
    std::vector<ActivityEntry> m_entries;
    bool m_isDark = false;
    bool m_isSakura = false;
    Instant m_selectedDate;
    bool m_showsFocusRing = false;
    std::string m_today; // when the days were counted
    HeatmapGrid m_grid;
    std::vector<HeatmapCell> m_cellRects;
};

} // namespace orrinvale
