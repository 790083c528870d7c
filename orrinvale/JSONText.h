// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace orrinvale
{

// A quoted JSON string: slashes and non-ASCII characters as themselves, broken UTF-8 as U+FFFD.
std::string jsonString(std::string_view text);

// A discarded value when the text is not JSON, or nests deeper than any of ours.
nlohmann::json parseJson(std::string_view text);

// The member when `object` is an object that has it as a string; else nullptr.
const std::string* jsonStringMember(const nlohmann::json& object, const char* name);

} // namespace orrinvale
