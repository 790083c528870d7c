// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ActivityEntry.h"

#include <string>
#include <vector>

namespace orrinvale
{

class LocalCalendar;

inline constexpr auto logExportFileName = "orrinvale-log.txt"; // suggested to the user

// "[2:07:09 PM] [Awake] message", a line for each entry in the given order, with line feeds between them alone. The
// date is left out on purpose.
std::string logExportText(const std::vector<ActivityEntry>& entries, const LocalCalendar& calendar);

} // namespace orrinvale
