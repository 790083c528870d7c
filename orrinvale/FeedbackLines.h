// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Look.h"

#include <QString>

#include <array>
#include <optional>

// What the application and the program with the feedback window say to each other: a line each.
namespace orrinvale::feedbackLines
{

// Reports of the program. The first one comes when its window is on the screen.
inline constexpr auto loading = "loading";
inline constexpr auto loaded = "loaded";
inline constexpr auto failed = "failed";

// Orders of the application. Their end closes the window.
inline constexpr auto raise = "raise";
inline constexpr auto look = "look "; // and its name

inline constexpr std::array<std::pair<Look, const char*>, 3> looks{
    {{Look::light, "light"}, {Look::dark, "dark"}, {Look::sakura, "sakura"}}};

inline const char* nameOf(Look wanted)
{
    return looks[static_cast<std::size_t>(wanted)].second;
}

inline std::optional<Look> lookNamed(QByteArrayView name)
{
    for (const auto& [itsLook, itsName] : looks) {
        if (name == itsName)
            return itsLook;
    }
    return std::nullopt;
}

} // namespace orrinvale::feedbackLines
