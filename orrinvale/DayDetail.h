// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "orrinvale/DayUsageRecord.h"

#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

class LocalCalendar;

// What the detail of one day says.
struct DayDetail {
    struct AppRow {
        std::string name;
        std::string duration;

        friend bool operator==(const AppRow&, const AppRow&) = default;
    };

    std::string heading; // "TODAY", or "Monday, Oct 5"
    bool isToday;
    std::string total;
    bool isEmpty;                // nothing was tracked
    std::vector<double> buckets; // seconds per hour
    std::vector<AppRow> apps;    // most time first, at most six
};

// Without a record the day is empty.
DayDetail dayDetail(Instant date, const std::optional<DayUsageRecord>& record, Instant now,
                    const LocalCalendar& calendar);

inline constexpr auto noActivityText = "No activity tracked yet";

// "3h 5m, most at 2:00 PM": what the chart says to assistive technology.
std::string hourChartText(const DayDetail& detail, const LocalCalendar& calendar);

} // namespace orrinvale
