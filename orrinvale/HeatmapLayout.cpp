// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HeatmapLayout.h"

#include "text/LocalCalendar.h"

#include <algorithm>
#include <map>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

constexpr int weeks = 17;
constexpr int daysPerWeek = 7;
constexpr double cellSize = 12;
constexpr double cellStep = 15; // the cell and its gap
constexpr double cardPadding = 20;
constexpr double weekdayColumn = 44;
constexpr double gridWidth = weeks * cellStep - 3;
constexpr double contentWidth = cardPadding + weekdayColumn + gridWidth;
constexpr double rowsTop = 50; // from the top of the view to row 0

struct Weekday {
    const char* name;
    int row;
};
constexpr std::array weekdays{Weekday{"Mon", 1}, Weekday{"Wed", 3}, Weekday{"Fri", 5}};

using Counts = std::map<std::string, int>; // by date key

Counts awakeCounts(const std::vector<ActivityEntry>& entries, const LocalCalendar& calendar)
{
    Counts counts;
    for (const auto& entry : entries) {
        if (entry.category == PersistedStateCategory::awake)
            ++counts[calendar.dateKey(entry.date)];
    }
    return counts;
}

Instant firstDay(Instant now, const LocalCalendar& calendar)
{
    const auto anchor = calendar.sundayOfWeek(now).value_or(now);
    return calendar.addingDays(anchor, -(weeks - 1) * daysPerWeek).value_or(anchor);
}

std::vector<HeatmapDay> drawnDays(Instant start, Instant now, const Counts& counts, const LocalCalendar& calendar)
{
    std::vector<HeatmapDay> days;
    const auto today = calendar.dateKey(now);
    for (int offset = 0; offset < weeks * daysPerWeek; ++offset) {
        const auto date = calendar.addingDays(start, offset);
        auto key = date ? calendar.dateKey(*date) : std::string();
        // Where summer time skips midnight, a day's beginning may lie after the present moment of the same day.
        if (!date || (*date > now && key != today))
            break;
        const auto count = counts.find(key);
        days.push_back({std::move(key), *date, count == counts.end() ? 0 : count->second, offset / daysPerWeek,
                        (offset % daysPerWeek + 1) % daysPerWeek});
    }
    return days;
}

std::vector<HeatmapMonth> monthsOf(Instant start, const LocalCalendar& calendar)
{
    std::vector<HeatmapMonth> months;
    std::optional<int> previous;
    for (int column = 0; column < weeks; ++column) {
        const auto date = calendar.addingDays(start, column * daysPerWeek).value_or(start);
        const auto month = calendar.month(date);
        if (month != previous)
            months.push_back({column, calendar.text(date, "MMM")});
        previous = month;
    }
    return months;
}

double columnsLeft(double width)
{
    return weekdayColumn + std::max(0.0, (width - contentWidth) / 2);
}

Rect cellRect(int column, int row, double width, double height)
{
    return {columnsLeft(width) + cellStep * column, height - (cellStep * row + rowsTop) - cellSize, cellSize, cellSize};
}

// On the middle of a weekday's row, from its word to the grid and from the grid to the card's padding.
void addGuides(std::vector<Rect>& guides, int row, double width, double height)
{
    constexpr double gap = 10, wordsEnd = 50, shortest = 24;
    const auto y = height - (cellStep * row + rowsTop) - cellSize / 2 - 0.5;
    const auto left = columnsLeft(width);
    const auto add = [&](double from, double to) {
        if (to - from >= shortest)
            guides.push_back({from, y, to - from, 1});
    };
    add(wordsEnd, left - gap);
    add(left + gridWidth + gap, width - cardPadding);
}

} // namespace

int HeatmapDay::level() const
{
    return count <= 0 ? 0 : count <= 2 ? 1 : count <= 5 ? 2 : count <= 9 ? 3 : 4;
}

const HeatmapDay* HeatmapGrid::dayOf(const std::string& dateKey) const
{
    const auto found = std::find_if(days.begin(), days.end(), [&](const auto& day) { return day.dateKey == dateKey; });
    return found == days.end() ? nullptr : &*found;
}

const HeatmapDay* HeatmapGrid::at(int column, int row) const
{
    const auto found =
        std::find_if(days.begin(), days.end(), [&](const auto& day) { return day.column == column && day.row == row; });
    return found == days.end() ? nullptr : &*found;
}

HeatmapGrid heatmapGrid(const std::vector<ActivityEntry>& entries, Instant now, const LocalCalendar& calendar)
{
    const auto start = firstDay(now, calendar);
    return {drawnDays(start, now, awakeCounts(entries, calendar), calendar), monthsOf(start, calendar),
            calendar.text(start, "MMM yyyy") + " – " + calendar.text(now, "MMM yyyy")};
}

std::string heatmapTooltip(const HeatmapDay& day, const LocalCalendar& calendar)
{
    const auto date = calendar.text(day.date, "MMM d, yyyy");
    if (day.count == 0)
        return date + " — No activity";
    return fmt::format("{} — {} active period{}", date, day.count, day.count == 1 ? "" : "s");
}

const HeatmapDay* heatmapMove(const HeatmapGrid& grid, const std::string& selectedDateKey, HeatmapMove move)
{
    if (grid.days.empty())
        return nullptr;
    if (move == HeatmapMove::home)
        return &grid.days.front();
    const auto* selected = grid.dayOf(selectedDateKey);
    if (!selected || move == HeatmapMove::end)
        return &grid.days.back();
    const auto columns = move == HeatmapMove::left ? -1 : move == HeatmapMove::right ? 1 : 0;
    const auto rows = move == HeatmapMove::up ? -1 : move == HeatmapMove::down ? 1 : 0;
    const auto* next = grid.at(selected->column + columns, selected->row + rows);
    return next ? next : selected;
}

HeatmapLayout::HeatmapLayout(const HeatmapGrid& shown, double width, double height)
    : grid{columnsLeft(width), cellRect(0, daysPerWeek - 1, width, height).y, gridWidth, daysPerWeek * cellStep - 3}
{
    for (const auto& day : shown.days)
        cells.push_back({cellRect(day.column, day.row, width, height), day});
    labels.push_back({"ACTIVITY", {cardPadding, height - 22}, 11, TextWeight::semibold});
    labels.push_back(
        {shown.range, {width - cardPadding, height - 21}, 10, TextWeight::regular, HeatmapLabel::Corner::right});
    for (const auto& month : shown.months)
        labels.push_back(
            {month.name, {columnsLeft(width) + cellStep * month.column, height - 42}, 10, TextWeight::medium});
    for (const auto& weekday : weekdays) {
        const auto y = cellRect(0, weekday.row, width, height).y + 1;
        labels.push_back({weekday.name, {cardPadding, y}, 9, TextWeight::regular});
        addGuides(guides, weekday.row, width, height);
    }
}

const HeatmapCell* HeatmapLayout::cellAt(Point point) const
{
    const auto found =
        std::find_if(cells.begin(), cells.end(), [&](const auto& cell) { return cell.rect.contains(point); });
    return found == cells.end() ? nullptr : &*found;
}

std::optional<Rect> HeatmapLayout::selectionRing(const std::string& selectedDateKey) const
{
    for (const auto& cell : cells) {
        if (cell.day.dateKey == selectedDateKey)
            return cell.rect.grownBy(heatmapRingWidth);
    }
    return std::nullopt;
}

HeatmapLegend heatmapLegend(double width, double lessWidth, double moreWidth)
{
    constexpr double y = 8, wordGap = 6, swatchSize = 10, swatchStep = 13, moreOffset = 68, points = 9;
    const auto moreX = width - cardPadding - moreWidth;
    const auto swatchesX = moreX - moreOffset;
    HeatmapLegend legend{{"Less", {swatchesX - wordGap - lessWidth, y}, points, TextWeight::regular},
                         {},
                         {"More", {moreX, y}, points, TextWeight::regular}};
    for (std::size_t level = 0; level < legend.swatches.size(); ++level)
        legend.swatches[level] = {swatchesX + swatchStep * static_cast<double>(level), y, swatchSize, swatchSize};
    return legend;
}

} // namespace orrinvale
