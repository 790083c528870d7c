// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WakeMode.h"

namespace orrinvale
{

std::string_view rawValue(WakeMode mode)
{
    switch (mode) {
    case WakeMode::smart:
        return "Smart";
    case WakeMode::manual:
        return "Always Awake";
    case WakeMode::off:
        return "Off";
    }
    return {};
}

std::optional<WakeMode> wakeModeFromRawValue(std::string_view text)
{
    for (const auto mode : allWakeModes) {
        if (rawValue(mode) == text)
            return mode;
    }
    return std::nullopt;
}

} // namespace orrinvale
