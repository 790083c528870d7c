// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "text/LocalCalendar.h"

#include "base/Fatal.h"
#include "text/UnicodeText.h"
#include "text/UserLocale.h"

#include <map>

#include <unicode/ucal.h>
#include <unicode/udat.h>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

using std::chrono::milliseconds;

// ICU counts milliseconds since 1970 in a double.
UDate icuDate(Instant instant)
{
    return static_cast<UDate>(std::chrono::floor<milliseconds>(instant.time_since_epoch()).count());
}

std::optional<Instant> instantOf(UDate date, UErrorCode error)
{
    constexpr auto bound = static_cast<UDate>(std::chrono::floor<milliseconds>(Instant::duration::max()).count());
    if (U_FAILURE(error) || date >= bound || date <= -bound)
        return std::nullopt;
    return Instant(milliseconds(static_cast<std::int64_t>(date)));
}

struct CloseCalendar {
    void operator()(UCalendar* calendar) const { ucal_close(calendar); }
};
using CalendarHandle = std::unique_ptr<UCalendar, CloseCalendar>;

CalendarHandle openCalendar(const std::u16string& zone, const std::string& locale, UCalendarType type)
{
    auto error = U_ZERO_ERROR;
    CalendarHandle handle(ucal_open(zone.empty() ? nullptr : zone.data(), static_cast<std::int32_t>(zone.size()),
                                    locale.c_str(), type, &error));
    if (U_FAILURE(error))
        fatal("no calendar");
    return handle;
}

// Looked up anew each time; ICU's default zone stays what it was at first.
std::u16string systemTimeZone()
{
    std::u16string name(128, u'\0');
    auto error = U_ZERO_ERROR;
    const auto length = ucal_getHostTimeZone(name.data(), static_cast<std::int32_t>(name.size()), &error);
    name.resize(U_FAILURE(error) ? 0 : static_cast<std::size_t>(length));
    return name;
}

} // namespace

struct LocalCalendar::Calendar {
    CalendarHandle handle;

    Calendar(const std::u16string& zone, const std::string& locale, UCalendarType type)
        : handle(openCalendar(zone, locale, type))
    {
    }

    void set(Instant instant) const
    {
        auto error = U_ZERO_ERROR;
        ucal_setMillis(handle.get(), icuDate(instant), &error);
    }

    std::int32_t field(UCalendarDateFields which) const
    {
        auto error = U_ZERO_ERROR;
        return ucal_get(handle.get(), which, &error);
    }

    std::optional<Instant> instant() const
    {
        auto error = U_ZERO_ERROR;
        const auto date = ucal_getMillis(handle.get(), &error);
        return instantOf(date, error);
    }
};

// Formatters are slow to make and quick to use, so each is kept once it was asked for.
struct LocalCalendar::Texts {
    struct Close {
        void operator()(UDateFormat* format) const { udat_close(format); }
    };
    using Format = std::unique_ptr<UDateFormat, Close>;

    std::u16string zone;
    std::string locale;
    Calendar calendar; // the one that the texts use
    std::map<std::string, Format> patterns;
    Format mediumTime;
    Format utcHour;

    Texts(const std::u16string& timeZone, const std::string& name)
        : zone(timeZone), locale(name), calendar(timeZone, name, UCAL_DEFAULT)
    {
    }

    Format open(UDateFormatStyle style, const std::u16string& inZone, const std::u16string& pattern = {}) const
    {
        auto error = U_ZERO_ERROR;
        const auto dateStyle = style == UDAT_PATTERN ? UDAT_PATTERN : UDAT_NONE;
        Format format(udat_open(style, dateStyle, locale.c_str(), inZone.empty() ? nullptr : inZone.data(),
                                static_cast<std::int32_t>(inZone.size()), pattern.data(),
                                static_cast<std::int32_t>(pattern.size()), &error));
        return U_FAILURE(error) ? nullptr : std::move(format);
    }

    static std::string text(const UDateFormat* format, UDate date)
    {
        if (!format)
            return {};
        std::u16string text(64, u'\0');
        for (;;) {
            auto error = U_ZERO_ERROR;
            const auto length =
                udat_format(format, date, text.data(), static_cast<std::int32_t>(text.size()), nullptr, &error);
            const auto fits = static_cast<std::size_t>(length) <= text.size();
            text.resize(static_cast<std::size_t>(length));
            if (fits)
                return U_FAILURE(error) ? std::string() : utf8(text);
        }
    }
};

LocalCalendar::LocalCalendar(const std::string& timeZone, const std::string& locale)
    : m_isOfOneZone(!timeZone.empty()), m_systemZone(systemTimeZone()),
      m_locale(locale.empty() ? userDateLocale() : locale)
{
    setTimeZone(utf16(timeZone));
}

LocalCalendar::~LocalCalendar() = default;

LocalCalendar& LocalCalendar::user()
{
    static LocalCalendar calendar;
    return calendar;
}

void LocalCalendar::setTimeZone(const std::u16string& zone)
{
    m_calendar = std::make_unique<Calendar>(zone, m_locale, UCAL_GREGORIAN);
    m_texts = std::make_unique<Texts>(zone, m_locale);
}

void LocalCalendar::readTimeZone()
{
    auto zone = systemTimeZone();
    if (m_isOfOneZone || std::exchange(m_systemZone, zone) == zone)
        return;
    setTimeZone(zone);
    m_zoneChanges.set(m_zoneChanges.get() + 1);
}

Cancellable LocalCalendar::observeTimeZone(std::function<void()> onChange) const
{
    return m_zoneChanges.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
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
    const auto days = ucal_getFieldDifference(m_calendar->handle.get(), icuDate(to), UCAL_DATE, &error);
    return U_FAILURE(error) ? 0 : days;
}

bool LocalCalendar::isSameDay(Instant a, Instant b) const
{
    return dateKey(a) == dateKey(b);
}

std::optional<Instant> LocalCalendar::addingDays(Instant instant, int days) const
{
    m_calendar->set(instant);
    auto error = U_ZERO_ERROR;
    ucal_add(m_calendar->handle.get(), UCAL_DATE, days, &error);
    return U_FAILURE(error) ? std::nullopt : m_calendar->instant();
}

int LocalCalendar::firstWeekday() const
{
    return ucal_getAttribute(m_calendar->handle.get(), UCAL_FIRST_DAY_OF_WEEK);
}

std::optional<Instant> LocalCalendar::sundayOfWeek(Instant instant) const
{
    m_calendar->set(instant);
    // The last days of December may belong to the first week of the next year, so the year has to be the week's own.
    const auto yearForWeek = m_calendar->field(UCAL_YEAR_WOY);
    const auto week = m_calendar->field(UCAL_WEEK_OF_YEAR);
    auto* handle = m_calendar->handle.get();
    ucal_clear(handle);
    ucal_set(handle, UCAL_YEAR_WOY, yearForWeek);
    ucal_set(handle, UCAL_WEEK_OF_YEAR, week);
    ucal_set(handle, UCAL_DAY_OF_WEEK, UCAL_SUNDAY);
    return m_calendar->instant();
}

int LocalCalendar::month(Instant instant) const
{
    m_texts->calendar.set(instant);
    return m_texts->calendar.field(UCAL_MONTH);
}

std::string LocalCalendar::text(Instant instant, const std::string& pattern) const
{
    auto& format = m_texts->patterns[pattern];
    if (!format)
        format = m_texts->open(UDAT_PATTERN, m_texts->zone, utf16(pattern));
    return Texts::text(format.get(), icuDate(instant));
}

std::string LocalCalendar::mediumTime(Instant instant) const
{
    auto& format = m_texts->mediumTime;
    if (!format)
        format = m_texts->open(UDAT_MEDIUM, m_texts->zone);
    return Texts::text(format.get(), icuDate(instant));
}

std::string LocalCalendar::hourText(int hour) const
{
    auto& format = m_texts->utcHour; // no hour is skipped there
    if (!format)
        format = m_texts->open(UDAT_SHORT, u"UTC");
    return Texts::text(format.get(), icuDate(Instant(std::chrono::hours(hour))));
}

} // namespace orrinvale
