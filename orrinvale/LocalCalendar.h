// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"

#include <cstdint>
#include <memory>
#include <string>

namespace orrinvale
{

// The Gregorian calendar in one time zone, with Latin digits in every locale. Main thread.
class LocalCalendar
{
public:
    // An empty identifier is the user's own zone; else an Olson name such as "Europe/Berlin".
    explicit LocalCalendar(const std::string& timeZone = {});
    ~LocalCalendar();

    // The user's zone as it was at the first use.
    static const LocalCalendar& user();

    // "yyyy-MM-dd" of the local date.
    std::string dateKey(Instant instant) const;
    // 0 to 23.
    int hour(Instant instant) const;
    // Whole days from one local date and time to another, by the calendar: 23 or 25 hours across a change of summer
    // time are a day. Negative when `to` lies before `from`.
    std::int64_t wholeDays(Instant from, Instant to) const;

private:
    struct Calendar;
    std::unique_ptr<Calendar> m_calendar;
};

} // namespace orrinvale
