// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// app_usage.json, and the detail and chart of each of its days.
#include "fuzz/FuzzInput.h"
#include "orrinvale/DayDetail.h"
#include "orrinvale/HourBars.h"
#include "text/LocalCalendar.h"

#include <nlohmann/json.hpp>

#include <cmath>

using namespace orrinvale;

namespace
{

constexpr double chartHeight = 80;

void show(const DayUsageRecord& record)
{
    static const LocalCalendar calendar("America/New_York", "en_US");
    constexpr Instant now{std::chrono::seconds(1'795'280'413)};
    const auto detail = dayDetail(now, record, now, calendar);
    require(detail.buckets.size() == 24, "a day has 24 hours");
    require(detail.apps.size() <= 6, "at most six apps are listed");
    require(!hourChartText(detail, calendar).empty(), "the chart can be told");
    const HourBars bars(detail.buckets, 300, chartHeight);
    for (const auto& bar : bars.bars) {
        require(std::isfinite(bar.height) && bar.height > 0 && bar.height < chartHeight + 0.01,
                "a bar is in its chart");
        require(std::isfinite(bars.cornerRadius(bar)), "a bar has a radius");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto days = decodeUsageDays(FuzzInput(data, size).rest());
    if (!days)
        return 0;
    const auto text = encodeUsageDays(*days);
    require(nlohmann::json::accept(text), "usage that is written is JSON");
    const auto again = decodeUsageDays(text);
    require(again && again->size() == days->size(), "usage that was read can be written and read again");
    for (const auto& [key, record] : *days)
        show(record);
    return 0;
}
