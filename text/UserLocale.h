// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orrinvale
{

// Which language and region the user's environment names, as ICU spells them. ICU's own default knows no LC_TIME and
// no LC_COLLATE, so both are read here. Any thread.

// From LC_ALL, LC_TIME, LANG: dates, times, the first weekday.
std::string userDateLocale();
// From LC_ALL, LC_COLLATE, LANG: sorting and searching.
std::string userCollationLocale();

using EnvironmentLookup = std::function<const char*(const char* name)>; // nullptr: not set
std::string dateLocaleIn(const EnvironmentLookup& environment);
std::string collationLocaleIn(const EnvironmentLookup& environment);

// "de_AT.UTF-8@euro" → "de_AT", "sr_RS@latin" → "sr_Latn_RS"; C, POSIX and what is no name of a locale read as American
// English.
std::string icuLocale(std::string_view posixLocale);

} // namespace orrinvale
