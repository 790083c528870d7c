// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/LocalCalendar.h"

#include "base/Fatal.h"

#include <unicode/ucal.h>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

// ICU counts milliseconds since 1970 in a double.
UDate icuDate(Instant instant)
{
    return static_cast<UDate>(std::chrono::floor<std::chrono::milliseconds>(instant.time_since_epoch()).count());
}

} // namespace

struct LocalCalendar::Calendar {
    UCalendar* handle;

    explicit Calendar(const std::string& timeZone)
    {
        auto error = U_ZERO_ERROR;
        const std::u16string zone(timeZone.begin(), timeZone.end()); // Olson names are ASCII
        handle = ucal_open(zone.empty() ? nullptr : zone.data(), static_cast<std::int32_t>(zone.size()), "en_US_POSIX",
                           UCAL_GREGORIAN, &error);
        if (U_FAILURE(error))
            fatal("no calendar");
    }
    ~Calendar() { ucal_close(handle); }
    Calendar(const Calendar&) = delete;
    Calendar& operator=(const Calendar&) = delete;

    void set(Instant instant) const
    {
        auto error = U_ZERO_ERROR;
        ucal_setMillis(handle, icuDate(instant), &error);
    }

    std::int32_t field(UCalendarDateFields which) const
    {
        auto error = U_ZERO_ERROR;
        return ucal_get(handle, which, &error);
    }
};

LocalCalendar::LocalCalendar(const std::string& timeZone) : m_calendar(std::make_unique<Calendar>(timeZone)) {}

LocalCalendar::~LocalCalendar() = default;

const LocalCalendar& LocalCalendar::user()
{
    static const LocalCalendar calendar;
    return calendar;
}

std::string LocalCalendar::dateKey(Instant instant) const
{
    m_calendar->set(instant);
    return fmt::format("{:04}-{:02}-{:02}", m_calendar->field(UCAL_EXTENDED_YEAR), m_calendar->field(UCAL_MONTH) + 1,
                       m_calendar->field(UCAL_DATE));
}

int LocalCalendar::hour(Instant instant) const
{
    m_calendar->set(instant);
    return m_calendar->field(UCAL_HOUR_OF_DAY);
}

std::int64_t LocalCalendar::wholeDays(Instant from, Instant to) const
{
    m_calendar->set(from);
    auto error = U_ZERO_ERROR;
    const auto days = ucal_getFieldDifference(m_calendar->handle, icuDate(to), UCAL_DATE, &error);
    return U_FAILURE(error) ? 0 : days;
}

} // namespace orrinvale
