// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace orrinvale
{

// The palette of what the toolkit draws itself: its file panels and tooltips.

// Whether the palette in effect is a dark one.
bool isPaletteDark();
// Light or dark; nullopt leaves it to the desktop.
void applyApplicationPalette(std::optional<bool> isDark);

} // namespace orrinvale
