// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ActivityEntry.h"
#include "orrinvale/DayUsageRecord.h"
#include "orrinvale/WakeSignal.h"

namespace orrinvale
{

class LocalCalendar;

// A made-up history that looks like real use, the same at every run.

Instant madeUpNow();
std::vector<ActivityEntry> madeUpLog(const LocalCalendar& calendar);
UsageDays madeUpUsage(const LocalCalendar& calendar);
// As many as asked, at most three.
WakeSignals madeUpSignals(std::size_t count, Instant now);

} // namespace orrinvale
