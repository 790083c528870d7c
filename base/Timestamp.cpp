// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Timestamp.h"

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono;

namespace
{

constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ";

bool hasForm(std::string_view text)
{
    if (text.size() != pattern.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (pattern[i] == 'd' ? text[i] < '0' || text[i] > '9' : text[i] != pattern[i])
            return false;
    }
    return true;
}

int numberAt(std::string_view text, std::size_t start, std::size_t length)
{
    int value = 0;
    for (const char digit : text.substr(start, length))
        value = value * 10 + (digit - '0');
    return value;
}

} // namespace

std::string timestampText(Instant instant)
{
    const auto second = floor<seconds>(instant);
    const auto day = floor<days>(second);
    const year_month_day date(day);
    const hh_mm_ss time(second - day);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), time.hours().count(),
                       time.minutes().count(), time.seconds().count());
}

std::optional<Instant> timestampFromText(std::string_view text)
{
    if (!hasForm(text))
        return std::nullopt;
    const year_month_day date(year(numberAt(text, 0, 4)), month(static_cast<unsigned>(numberAt(text, 5, 2))),
                              day(static_cast<unsigned>(numberAt(text, 8, 2))));
    const auto hour = numberAt(text, 11, 2);
    const auto minute = numberAt(text, 14, 2);
    const auto second = numberAt(text, 17, 2);
    if (!date.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
}

} // namespace orrinvale
