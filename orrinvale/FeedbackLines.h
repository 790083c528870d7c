// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale::feedbackLines
{

// What the program with the feedback window reports to the application that started it, a line each. The first one
// comes when its window is on the screen.
inline constexpr auto loading = "loading";
inline constexpr auto loaded = "loaded";
inline constexpr auto failed = "failed";

// What the application orders. The end of the orders closes the window.
inline constexpr auto raise = "raise";
inline constexpr auto look = "look "; // and its name

} // namespace orrinvale::feedbackLines
