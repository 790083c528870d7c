// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DayUsageRecord.h"

#include "base/Fatal.h"
#include "orrinvale/JSONText.h"

#include <nlohmann/json.hpp>

#include <algorithm>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

using nlohmann::json;

bool readHours(const json& array, std::array<double, 24>& hours)
{
    if (!array.is_array() || array.size() != hours.size())
        return false;
    for (std::size_t hour = 0; hour < hours.size(); ++hour) {
        if (!array[hour].is_number())
            return false;
        hours[hour] = array[hour].get<double>();
    }
    return true;
}

bool readSeconds(const json& object, std::map<std::string, double>& seconds)
{
    if (!object.is_object())
        return false;
    for (const auto& [key, value] : object.items()) {
        if (!value.is_number())
            return false;
        seconds[key] = value.get<double>();
    }
    return true;
}

bool readNames(const json& object, std::map<std::string, std::string>& names)
{
    if (!object.is_object())
        return false;
    for (const auto& [key, value] : object.items()) {
        if (!value.is_string())
            return false;
        names[key] = value.get<std::string>();
    }
    return true;
}

std::optional<DayUsageRecord> decodeRecord(const json& object)
{
    DayUsageRecord record;
    const auto* dateKey = jsonStringMember(object, "dateKey");
    if (!dateKey || !object.contains("hourlySeconds") || !object.contains("appSeconds") || !object.contains("appNames"))
        return std::nullopt;
    record.dateKey = *dateKey;
    if (!readHours(object["hourlySeconds"], record.hourlySeconds) ||
        !readSeconds(object["appSeconds"], record.appSeconds) || !readNames(object["appNames"], record.appNames))
        return std::nullopt;
    return record;
}

} // namespace

std::vector<DayUsageRecord::AppTime> DayUsageRecord::topApps(int limit) const
{
    if (limit < 0)
        fatal("a negative number of top apps was asked for");
    std::vector<AppTime> apps;
    for (const auto& [key, seconds] : appSeconds) {
        const auto name = appNames.find(key);
        apps.push_back({key, name == appNames.end() ? key : name->second, seconds});
    }
    std::stable_sort(apps.begin(), apps.end(), [](const auto& a, const auto& b) { return a.seconds > b.seconds; });
    apps.resize(std::min(apps.size(), static_cast<std::size_t>(limit)));
    return apps;
}

std::string formatDuration(double seconds)
{
    constexpr double most = 1e15; // a stored number may be larger than any count of minutes
    const auto minutes = static_cast<std::int64_t>(std::clamp(seconds / 60, -most, most));
    const auto hours = minutes / 60;
    const auto rest = minutes % 60;
    if (minutes < 60)
        return rest == 0 ? "< 1m" : fmt::format("{}m", rest);
    return rest == 0 ? fmt::format("{}h", hours) : fmt::format("{}h {}m", hours, rest);
}

std::string encodeUsageDays(const UsageDays& days)
{
    auto document = nlohmann::ordered_json::object();
    for (const auto& [key, record] : days) {
        document[key] = {{"dateKey", record.dateKey},
                         {"hourlySeconds", record.hourlySeconds},
                         {"appSeconds", record.appSeconds},
                         {"appNames", record.appNames}};
    }
    return document.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::optional<UsageDays> decodeUsageDays(std::string_view text)
{
    const auto document = parseJson(text);
    if (!document.is_object())
        return std::nullopt;
    UsageDays days;
    for (const auto& [key, object] : document.items()) {
        auto record = decodeRecord(object);
        if (!record)
            return std::nullopt;
        days.emplace(key, std::move(*record));
    }
    return days;
}

} // namespace orrinvale
