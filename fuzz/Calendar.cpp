// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// The calendar at any instant, in any time zone and locale that an environment may name, and the heatmap over it.
#include "fuzz/FuzzInput.h"
#include "orrinvale/DayDetail.h"
#include "orrinvale/HeatmapLayout.h"
#include "orrinvale/HourBars.h"
#include "orrinvale/LogExport.h"
#include "orrinvale/ReasonContent.h"
#include "platform/linux/LinuxUserLocale.h"
#include "text/LocalCalendar.h"

#include <cmath>

using namespace orrinvale;

namespace
{

// One that a file can name: years 0 to 9999.
Instant instantOf(FuzzInput& input)
{
    constexpr Instant first = std::chrono::sys_days(std::chrono::year(0) / 1 / 1);
    constexpr Instant beyond = std::chrono::sys_days(std::chrono::year(10'000) / 1 / 1);
    return first + Instant::duration(input.number<std::uint64_t>() % (beyond - first).count());
}

void tellDates(const LocalCalendar& calendar, Instant now, Instant other, int days)
{
    const auto hour = calendar.hour(now);
    require(hour >= 0 && hour <= 23, "an hour is one of 24");
    require(calendar.isSameDay(now, now) && calendar.wholeDays(now, now) == 0, "a day is the same as itself");
    require(calendar.firstWeekday() >= 1 && calendar.firstWeekday() <= 7, "a week begins on one of its days");
    require(calendar.month(now) >= 0, "months are counted from 0");
    calendar.wholeDays(now, other);
    calendar.addingDays(now, days);
    calendar.sundayOfWeek(now);
    calendar.mediumTime(now);
    calendar.hourText(calendar.hour(other));
    relativeTime(other, now);
}

void showHeatmap(const LocalCalendar& calendar, Instant now, FuzzInput& input)
{
    std::vector<ActivityEntry> entries;
    for (auto count = input.below(8); count > 0; --count)
        entries.push_back({UUID(), instantOf(input), "m", PersistedStateCategory::awake});
    logExportText(entries, calendar);
    const auto grid = heatmapGrid(entries, now, calendar);
    for (const auto& day : grid.days)
        require(day.column >= 0 && day.column < 17 && day.row >= 0 && day.row < 7, "a day is in the grid");
    const auto width = input.number<double>();
    const auto height = input.number<double>();
    const HeatmapLayout layout(grid, width, height);
    layout.cellAt({width / 2, height / 2});
    layout.selectionRing(calendar.dateKey(now));
    const auto other = calendar.dateKey(instantOf(input));
    for (const auto move : {HeatmapMove::left, HeatmapMove::right, HeatmapMove::up, HeatmapMove::down,
                            HeatmapMove::home, HeatmapMove::end})
        heatmapMove(grid, other, move);
}

// No file has any other.
double finite(FuzzInput& input)
{
    const auto number = input.number<double>();
    return std::isfinite(number) ? number : 0;
}

void showDay(const LocalCalendar& calendar, Instant day, Instant now, FuzzInput& input)
{
    DayUsageRecord record;
    for (auto& seconds : record.hourlySeconds)
        seconds = finite(input);
    for (const auto* app : {"a", "b", "c", "d", "e", "f", "g"})
        record.appSeconds[app] = finite(input);
    const auto detail = dayDetail(day, record, now, calendar);
    hourChartText(detail, calendar);
    const HourBars bars(detail.buckets, 300, 80);
    for (const auto& bar : bars.bars)
        bars.cornerRadius(bar);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const std::string zone(input.piece());
    const std::string posixLocale(input.piece());
    if (posixLocale.find('\0') != posixLocale.npos || zone.find('\0') != zone.npos) // no environment holds it
        return 0;
    const LocalCalendar calendar(zone.empty() ? "UTC" : zone, icuLocale(posixLocale));
    const auto now = instantOf(input);
    const auto other = instantOf(input);
    tellDates(calendar, now, other, input.number<int>());
    showHeatmap(calendar, now, input);
    showDay(calendar, other, now, input);
    return 0;
}
