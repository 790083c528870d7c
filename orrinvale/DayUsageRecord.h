// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// What kept the machine awake on one local day.
struct DayUsageRecord {
    std::string dateKey;                         // "yyyy-MM-dd"
    std::array<double, 24> hourlySeconds{};      // with at least one app active; 7,200 in autumn's repeated hour
    std::map<std::string, double> appSeconds;    // by app key
    std::map<std::string, std::string> appNames; // by app key: the display name last seen

    struct AppTime {
        std::string key;
        std::string name; // the key itself when no name is known
        double seconds;
    };
    // The apps with the most seconds, most first, at most `limit`; a negative limit is fatal.
    std::vector<AppTime> topApps(int limit) const;

    friend bool operator==(const DayUsageRecord&, const DayUsageRecord&) = default;
};

using UsageDays = std::map<std::string, DayUsageRecord>; // by date key

// "< 1m", "7m", "2h", "2h 5m"; whole minutes, truncated toward zero.
std::string formatDuration(double seconds);

// One JSON object: date keys, and a record object each.
std::string encodeUsageDays(const UsageDays& days);
// nullopt when anything is missing or of the wrong type, or a record has other than 24 hours.
std::optional<UsageDays> decodeUsageDays(std::string_view json);

} // namespace orrinvale
