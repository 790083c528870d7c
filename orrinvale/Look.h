// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/Colours.h"

namespace orrinvale
{

class AppSettings;

// How a window is coloured: one column of its palette.
enum class Look { light, dark, sakura };

// Sakura whenever that theme is chosen; else by the appearance in effect.
Look lookOf(const AppSettings& settings);

} // namespace orrinvale
