// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace orrinvale
{

// What the user asked for. The raw value is the text shown and the text stored.
enum class WakeMode { smart, manual, off };

// In the order in which modes are listed everywhere.
inline constexpr std::array allWakeModes{WakeMode::smart, WakeMode::manual, WakeMode::off};

std::string_view rawValue(WakeMode mode);
// nullopt for any text but the three raw values, to the letter.
std::optional<WakeMode> wakeModeFromRawValue(std::string_view text);

} // namespace orrinvale
