// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace orrinvale
{

// Writes "⚠️ <component>: <text>" and a line feed to standard output at once. It never waits: a line for which a
// pipe, a socket or a terminal has no room is lost. Any thread.
void consoleLine(std::string_view component, std::string_view text);

} // namespace orrinvale
