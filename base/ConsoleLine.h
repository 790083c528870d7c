// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace orrinvale
{

// Writes "⚠️ <component>: <text>" and a line feed to standard output and flushes it. Any thread.
void consoleLine(std::string_view component, std::string_view text);

} // namespace orrinvale
