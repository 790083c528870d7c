// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orrinvale
{

// The user's locales as ICU spells them: American English until main has provided what the platform tells. Provided
// once, before anything asks; then any thread.
void provideUserLocale(std::string dates, std::string collation);

// Of dates, times, the first weekday.
const std::string& userDateLocale();
// Of sorting and searching.
const std::string& userCollationLocale();

} // namespace orrinvale
