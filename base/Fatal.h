// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace orrinvale
{

// A programming fault or an impossible start: one line on standard error, then abort().
[[noreturn]] void fatal(std::string_view what);

} // namespace orrinvale
