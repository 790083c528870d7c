// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "base/Published.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orrinvale
{

// The user's calendar in one time zone: days, hours and weeks are Gregorian, with Latin digits in date keys; a locale
// says where the week begins and how dates and times read, in the calendar that is usual there. Main thread.
class LocalCalendar
{
public:
    // An empty time zone is the user's own, else an Olson name such as "Europe/Berlin"; an empty locale is the user's
    // own for dates, else one such as "de_DE".
    explicit LocalCalendar(const std::string& timeZone = {}, const std::string& locale = {});
    ~LocalCalendar();

    // The user's locale as it was at the first use, and zone as it was when last read.
    static LocalCalendar& user();

    // Takes the time zone that the system has now, unless this calendar was made for one.
    void readTimeZone();
    // `onChange` is called after it became another one: days and times of day are others then.
    [[nodiscard]] Cancellable observeTimeZone(std::function<void()> onChange) const;

    // "yyyy-MM-dd" of the local date.
    std::string dateKey(Instant instant) const;
    // 0 to 23.
    int hour(Instant instant) const;
    // Whole days from one local date and time to another, by the calendar: 23 or 25 hours across a change of summer
    // time are a day. Negative when `to` lies before `from`.
    std::int64_t wholeDays(Instant from, Instant to) const;
    bool isSameDay(Instant a, Instant b) const;

    // The same time of day that many calendar days later, or earlier; nullopt when the calendar gives none.
    std::optional<Instant> addingDays(Instant instant, int days) const;
    // 1 Sunday … 7 Saturday.
    int firstWeekday() const;
    // The beginning of the Sunday within the local week of `instant`, which may lie ahead of it: where weeks begin on
    // Monday, Sunday is the last day. nullopt when the calendar gives none.
    std::optional<Instant> sundayOfWeek(Instant instant) const;
    // Counted from 0, in the calendar that texts use; good for telling months apart.
    int month(Instant instant) const;

    // In the locale's words, digits and calendar, UTF-8; `pattern` is a Unicode date pattern such as "MMM d, yyyy".
    std::string text(Instant instant, const std::string& pattern) const;
    // The time of day with seconds, in the locale's medium style.
    std::string mediumTime(Instant instant) const;
    // A full hour, 0 to 23, in the locale's short style.
    std::string hourText(int hour) const;

private:
    struct Calendar;
    struct Texts;
    void setTimeZone(const std::u16string& zone);

    const bool m_isOfOneZone;
    std::u16string m_systemZone; // when last read
    std::string m_locale;
    mutable Published<int> m_zoneChanges;
    std::unique_ptr<Calendar> m_calendar;
    std::unique_ptr<Texts> m_texts;
};

} // namespace orrinvale
