// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityEntry.h"

#include "base/Timestamp.h"
#include "orrinvale/JSONText.h"

#include <nlohmann/json.hpp>

#include <array>
#include <iterator>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

constexpr std::array allCategories{PersistedStateCategory::awake, PersistedStateCategory::cooldown,
                                   PersistedStateCategory::idle};

std::optional<ActivityEntry> decodeEntry(const nlohmann::json& object)
{
    const auto* idText = jsonStringMember(object, "id");
    const auto* dateText = jsonStringMember(object, "date");
    const auto* message = jsonStringMember(object, "message");
    const auto* categoryText = jsonStringMember(object, "category");
    if (!idText || !dateText || !message || !categoryText)
        return std::nullopt;
    const auto id = UUID::fromText(*idText);
    const auto date = timestampFromText(*dateText);
    const auto category = persistedStateCategoryFromRawValue(*categoryText);
    if (!id || !date || !category)
        return std::nullopt;
    return ActivityEntry{*id, *date, *message, *category};
}

} // namespace

std::string_view rawValue(PersistedStateCategory category)
{
    switch (category) {
    case PersistedStateCategory::awake:
        return "awake";
    case PersistedStateCategory::cooldown:
        return "cooldown";
    case PersistedStateCategory::idle:
        return "idle";
    }
    return {};
}

std::optional<PersistedStateCategory> persistedStateCategoryFromRawValue(std::string_view text)
{
    for (const auto category : allCategories) {
        if (rawValue(category) == text)
            return category;
    }
    return std::nullopt;
}

std::string encodeActivityLog(const std::vector<ActivityEntry>& entries)
{
    // Members are written by hand: their order is part of the format.
    std::string json = "[";
    for (const auto& entry : entries) {
        if (json.size() > 1)
            json += ',';
        fmt::format_to(std::back_inserter(json), R"({{"id":"{}","date":"{}","message":{},"category":"{}"}})",
                       entry.id.text(), timestampText(entry.date), jsonString(entry.message), rawValue(entry.category));
    }
    return json += ']';
}

std::optional<std::vector<ActivityEntry>> decodeActivityLog(std::string_view json)
{
    const auto document = parseJson(json);
    if (!document.is_array())
        return std::nullopt;
    std::vector<ActivityEntry> entries;
    entries.reserve(document.size());
    for (const auto& object : document) {
        auto entry = decodeEntry(object);
        if (!entry)
            return std::nullopt;
        entries.push_back(std::move(*entry));
    }
    return entries;
}

} // namespace orrinvale
