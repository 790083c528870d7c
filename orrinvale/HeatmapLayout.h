// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ActivityEntry.h"
#include "orrinvale/Geometry.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

class LocalCalendar;

// One day that the heatmap draws.
struct HeatmapDay {
    std::string dateKey;
    Instant date;
    int count;  // active periods that began on it
    int column; // 0 the oldest week … 16
    int row;    // 0 at the top; the first day of a column is on row 1, its seventh on row 0

    int level() const; // 0 to 4

    friend bool operator==(const HeatmapDay&, const HeatmapDay&) = default;
};

struct HeatmapMonth {
    int column;
    std::string name;

    friend bool operator==(const HeatmapMonth&, const HeatmapMonth&) = default;
};

// What the heatmap shows of the log, whatever its size: made anew when the log or the day changes.
struct HeatmapGrid {
    std::vector<HeatmapDay> days;     // oldest first; none lies after today
    std::vector<HeatmapMonth> months; // where a column begins another month than the one before
    std::string range;                // "Jul 2026 – Oct 2026"

    // nullptr when that day is not drawn.
    const HeatmapDay* dayOf(const std::string& dateKey) const;
    const HeatmapDay* at(int column, int row) const;
};

HeatmapGrid heatmapGrid(const std::vector<ActivityEntry>& entries, Instant now, const LocalCalendar& calendar);

// "Oct 5, 2026 — 2 active periods"; also what a cell is called by assistive technology.
std::string heatmapTooltip(const HeatmapDay& day, const LocalCalendar& calendar);

enum class HeatmapMove { left, right, up, down, home, end };

// The day to select after a key: along the drawn grid, Home and End to its first and last day. The selected day itself
// when there is nothing to move to; the last day when the selected one is not drawn. nullptr in an empty grid.
const HeatmapDay* heatmapMove(const HeatmapGrid& grid, const std::string& selectedDateKey, HeatmapMove move);

enum class TextWeight { regular, medium, semibold };

struct HeatmapLabel {
    std::string text;
    Point corner; // the lower left corner of the line box, or the lower right one
    double points;
    TextWeight weight;
    enum class Corner { left, right } at = Corner::left;

    friend bool operator==(const HeatmapLabel&, const HeatmapLabel&) = default;
};

struct HeatmapCell {
    Rect rect;
    HeatmapDay day;
};

struct HeatmapLegend {
    HeatmapLabel less;
    std::array<Rect, 5> swatches; // by level
    HeatmapLabel more;
};

inline constexpr double heatmapCellRadius = 2.5;
inline constexpr double heatmapSwatchRadius = 2;
inline constexpr double heatmapRingWidth = 1.5; // of the line, and of the gap between it and the cell

// Where everything stands in a view of one size.
struct HeatmapLayout {
    HeatmapLayout(const HeatmapGrid& grid, double width, double height);

    std::vector<HeatmapCell> cells;   // oldest first
    std::vector<HeatmapLabel> labels; // title, range, months, weekdays
    std::vector<Rect> guides;         // hairlines that tie the weekday words to the grid, 1 high
    Rect grid;                        // around the cells of all 17 weeks

    // nullptr between the cells and on days that are not drawn.
    const HeatmapCell* cellAt(Point point) const;
    // The ring's path around the selected day; nullopt when that day is not drawn.
    std::optional<Rect> selectionRing(const std::string& selectedDateKey) const;
};

// The widths are those of the words "Less" and "More" in their font.
HeatmapLegend heatmapLegend(double width, double lessWidth, double moreWidth);

} // namespace orrinvale
