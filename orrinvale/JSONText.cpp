// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/JSONText.h"

#include "base/JSONNesting.h"

#include <nlohmann/json.hpp>

namespace orrinvale
{

using nlohmann::json;

std::string jsonString(std::string_view text)
{
    return json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

json parseJson(std::string_view text)
{
    return isNestedTooDeep(text) ? json(json::value_t::discarded) : json::parse(text, nullptr, false);
}

const std::string* jsonStringMember(const json& object, const char* name)
{
    if (!object.is_object())
        return nullptr;
    const auto member = object.find(name);
    return member == object.end() ? nullptr : member->get_ptr<const std::string*>();
}

} // namespace orrinvale
