// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace orrinvale
{

// Which language and region the user has chosen, as ICU spells them. Any thread.
class UserLocale
{
public:
    virtual ~UserLocale() = default;
    // Of dates, times and the first weekday.
    virtual std::string dates() const = 0;
    // Of sorting and searching.
    virtual std::string collation() const = 0;
};

} // namespace orrinvale
