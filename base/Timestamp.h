// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"

#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

// ISO 8601 in UTC with whole seconds, for example 2026-03-14T09:26:53Z. Fractions are dropped toward the past.
std::string timestampText(Instant instant);

// Reads exactly that form; nullopt for any other text, an impossible date included.
std::optional<Instant> timestampFromText(std::string_view text);

} // namespace orrinvale
