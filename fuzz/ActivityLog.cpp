// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// activity_log.json, and what the windows and the export make of the entries.
#include "fuzz/FuzzInput.h"
#include "orrinvale/HeatmapLayout.h"
#include "orrinvale/LogExport.h"
#include "text/LocalCalendar.h"

#include <nlohmann/json.hpp>

using namespace orrinvale;

namespace
{

void writeAgain(const std::vector<ActivityEntry>& entries)
{
    const auto text = encodeActivityLog(entries);
    require(nlohmann::json::accept(text), "a log that is written is JSON");
    const auto again = decodeActivityLog(text);
    require(again && again->size() == entries.size(), "a log that was read can be written and read again");
    require(encodeActivityLog(*again) == text, "a log that was written once stays as it is");
}

void show(const std::vector<ActivityEntry>& entries)
{
    static const LocalCalendar calendar("Europe/Berlin", "de_DE");
    constexpr Instant now{std::chrono::seconds(1'795'280'413)};
    logExportText(entries, calendar);
    const auto grid = heatmapGrid(entries, now, calendar);
    require(!grid.days.empty(), "the heatmap has days whatever the log says");
    for (const auto& day : grid.days) {
        require(day.level() >= 0 && day.level() <= 4, "a day has one of five levels");
        require(!heatmapTooltip(day, calendar).empty(), "a day has a tooltip");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (const auto entries = decodeActivityLog(FuzzInput(data, size).rest())) {
        writeAgain(*entries);
        show(*entries);
    }
    return 0;
}
