// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/LogExport.h"

#include "text/LocalCalendar.h"

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

std::string_view label(PersistedStateCategory category)
{
    switch (category) {
    case PersistedStateCategory::awake:
        return "Awake";
    case PersistedStateCategory::cooldown:
        return "Cooling Down";
    case PersistedStateCategory::idle:
        break;
    }
    return "Idle";
}

} // namespace

std::string logExportText(const std::vector<ActivityEntry>& entries, const LocalCalendar& calendar)
{
    std::string text;
    for (const auto& entry : entries) {
        if (&entry != &entries.front())
            text += '\n';
        text += fmt::format("[{}] [{}] {}", calendar.mediumTime(entry.date), label(entry.category), entry.message);
    }
    return text;
}

} // namespace orrinvale
