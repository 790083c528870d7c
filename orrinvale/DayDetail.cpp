// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DayDetail.h"

#include "text/LocalCalendar.h"

#include <algorithm>
#include <numeric>

namespace orrinvale
{

constexpr auto topAppLimit = 6;

DayDetail dayDetail(Instant date, const std::optional<DayUsageRecord>& record, Instant now,
                    const LocalCalendar& calendar)
{
    const auto shown = record.value_or(DayUsageRecord{});
    const auto total = std::accumulate(shown.hourlySeconds.begin(), shown.hourlySeconds.end(), 0.0);
    const auto isToday = calendar.isSameDay(date, now);
    DayDetail detail{.heading = isToday ? "TODAY" : calendar.text(date, "EEEE, MMM d"),
                     .isToday = isToday,
                     .total = formatDuration(total),
                     .isEmpty = total == 0,
                     .buckets = {shown.hourlySeconds.begin(), shown.hourlySeconds.end()},
                     .apps = {}};
    for (const auto& app : shown.topApps(topAppLimit))
        detail.apps.push_back({app.name, formatDuration(app.seconds)});
    return detail;
}

std::string hourChartText(const DayDetail& detail, const LocalCalendar& calendar)
{
    if (detail.isEmpty)
        return noActivityText;
    const auto busiest = std::max_element(detail.buckets.begin(), detail.buckets.end());
    return detail.total + ", most at " + calendar.hourText(static_cast<int>(busiest - detail.buckets.begin()));
}

} // namespace orrinvale
