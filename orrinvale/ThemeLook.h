// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Look.h"

namespace orrinvale
{

class AppSettings;

// Sakura whenever that theme is chosen; else by the appearance in effect.
Look lookOf(const AppSettings& settings);

} // namespace orrinvale
