// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserLocale.h"

#include <functional>
#include <string>
#include <string_view>

namespace orrinvale
{

using EnvironmentLookup = std::function<const char*(const char* name)>; // nullptr: not set

// What the user's environment names. ICU's own default knows no LC_TIME and no LC_COLLATE, so both are read here.
class LinuxUserLocale final : public UserLocale
{
public:
    explicit LinuxUserLocale(EnvironmentLookup environment);
    LinuxUserLocale();

    std::string dates() const override;     // LC_ALL, LC_TIME, LANG
    std::string collation() const override; // LC_ALL, LC_COLLATE, LANG

private:
    EnvironmentLookup m_environment;
};

// "de_AT.UTF-8@euro" → "de_AT", "sr_RS@latin" → "sr_Latn_RS"; C, POSIX and what is no name of a locale read as American
// English.
std::string icuLocale(std::string_view posixLocale);

} // namespace orrinvale
