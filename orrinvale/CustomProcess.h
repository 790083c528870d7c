// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/UUID.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// One row of the user's watch list.
struct CustomProcess {
    UUID id = UUID::random();
    std::string bundleID;
    std::string label;  // shown in the list and as the reason
    std::int64_t score; // the weight of its signal

    friend bool operator==(const CustomProcess&, const CustomProcess&) = default;
};

// A JSON array of objects with the members id, bundleID, label, score.
std::string encodeCustomProcesses(const std::vector<CustomProcess>& processes);
// nullopt when anything is missing or of the wrong type; 15.0 reads as 15.
std::optional<std::vector<CustomProcess>> decodeCustomProcesses(std::string_view json);

} // namespace orrinvale
