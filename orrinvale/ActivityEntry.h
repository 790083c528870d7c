// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "base/UUID.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// The kind of state that a log entry tells of; the raw value is the stored text.
enum class PersistedStateCategory { awake, cooldown, idle };

std::string_view rawValue(PersistedStateCategory category);
std::optional<PersistedStateCategory> persistedStateCategoryFromRawValue(std::string_view text);

// One line of the activity log: a real change of state.
struct ActivityEntry {
    UUID id;
    Instant date; // stored with whole seconds
    std::string message;
    PersistedStateCategory category;

    friend bool operator==(const ActivityEntry&, const ActivityEntry&) = default;
};

// Compact JSON: an array of objects with the members id, date, message, category in this order.
std::string encodeActivityLog(const std::vector<ActivityEntry>& entries);

// nullopt when anything in the text is not as written above; members in any order, unknown members are ignored.
std::optional<std::vector<ActivityEntry>> decodeActivityLog(std::string_view json);

} // namespace orrinvale
