// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/CustomProcess.h"

#include "orrinvale/JSONText.h"

#include <nlohmann/json.hpp>

namespace orrinvale
{

namespace
{

std::optional<std::int64_t> wholeNumber(const nlohmann::json& value)
{
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX)
        return std::nullopt;
    if (value.is_number_integer())
        return value.get<std::int64_t>();
    if (!value.is_number_float())
        return std::nullopt;
    const auto number = value.get<double>();
    // The bounds are exact as doubles: -2^63 and 2^63.
    if (!(number >= -0x1p63 && number < 0x1p63) || number != static_cast<double>(static_cast<std::int64_t>(number)))
        return std::nullopt;
    return static_cast<std::int64_t>(number);
}

std::optional<CustomProcess> decodeProcess(const nlohmann::json& object)
{
    const auto* idText = jsonStringMember(object, "id");
    const auto* bundleID = jsonStringMember(object, "bundleID");
    const auto* label = jsonStringMember(object, "label");
    if (!idText || !bundleID || !label || !object.contains("score"))
        return std::nullopt;
    const auto id = UUID::fromText(*idText);
    const auto score = wholeNumber(object["score"]);
    if (!id || !score)
        return std::nullopt;
    return CustomProcess{*id, *bundleID, *label, *score};
}

} // namespace

std::string encodeCustomProcesses(const std::vector<CustomProcess>& processes)
{
    auto array = nlohmann::ordered_json::array();
    for (const auto& process : processes) {
        array.push_back({{"id", process.id.text()},
                         {"bundleID", process.bundleID},
                         {"label", process.label},
                         {"score", process.score}});
    }
    return array.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::optional<std::vector<CustomProcess>> decodeCustomProcesses(std::string_view json)
{
    const auto document = parseJson(json);
    if (!document.is_array())
        return std::nullopt;
    std::vector<CustomProcess> processes;
    for (const auto& object : document) {
        auto process = decodeProcess(object);
        if (!process)
            return std::nullopt;
        processes.push_back(std::move(*process));
    }
    return processes;
}

} // namespace orrinvale
