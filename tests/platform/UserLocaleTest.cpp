// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserLocale.h"

#include "text/LocalCalendar.h"

#include <gtest/gtest.h>

#include <map>

namespace orrinvale
{

namespace
{

using Variables = std::map<std::string, std::string>;

EnvironmentLookup lookup(const Variables& variables)
{
    return [&variables](const char* name) -> const char* {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second.c_str();
    };
}

TEST(UserLocale, DatesAndSortingHaveVariablesOfTheirOwn)
{
    const Variables none;
    const Variables all{{"LC_TIME", "de_DE.UTF-8"}, {"LC_COLLATE", "sv_SE.UTF-8"}, {"LANG", "en_GB.UTF-8"}};
    EXPECT_EQ(LinuxUserLocale(lookup(all)).dates(), "de_DE");
    EXPECT_EQ(LinuxUserLocale(lookup(all)).collation(), "sv_SE");
    const Variables overriding{{"LC_ALL", "ja_JP.UTF-8"}, {"LC_TIME", "de_DE"}, {"LC_COLLATE", "sv_SE"}};
    EXPECT_EQ(LinuxUserLocale(lookup(overriding)).dates(), "ja_JP");
    EXPECT_EQ(LinuxUserLocale(lookup(overriding)).collation(), "ja_JP");
    const Variables emptyOnes{{"LC_ALL", ""}, {"LC_TIME", ""}, {"LC_COLLATE", ""}, {"LANG", "en_GB.UTF-8"}};
    EXPECT_EQ(LinuxUserLocale(lookup(emptyOnes)).dates(), "en_GB");
    EXPECT_EQ(LinuxUserLocale(lookup(emptyOnes)).collation(), "en_GB");
    EXPECT_EQ(LinuxUserLocale(lookup(none)).dates(), "en_US");
}

TEST(UserLocale, NamesOfTheCLibraryBecomeThoseOfIcu)
{
    EXPECT_EQ(icuLocale("de_AT.UTF-8"), "de_AT");
    EXPECT_EQ(icuLocale("de_AT.ISO-8859-15@euro"), "de_AT");
    EXPECT_EQ(icuLocale("sr_RS.UTF-8@latin"), "sr_Latn_RS");
    EXPECT_EQ(icuLocale("sr_RS@latin"), "sr_Latn_RS");
    EXPECT_EQ(icuLocale("eo"), "eo");
    EXPECT_EQ(icuLocale("C.UTF-8"), "en_US");
    EXPECT_EQ(icuLocale("POSIX"), "en_US");
}

TEST(UserLocale, WhatIsNoNameOfALocaleReadsAsAmericanEnglish)
{
    for (const auto* name : {"", "_", "de_", "_DE", "de__AT", "../../etc", "d e", "ü", "@latin", "a_b_c_d_e_f"})
        EXPECT_EQ(icuLocale(name), "en_US") << name;
    EXPECT_EQ(icuLocale("zh_Hant_TW"), "zh_Hant_TW");
}

// Lengths at which ICU's own arrays end are among them.
TEST(UserLocale, NamesOfAnyLengthGiveTexts)
{
    for (std::size_t length = 1; length < 400; ++length) {
        for (const auto* rest : {"", "_DE", "_DE.UTF-8@latin"}) {
            const LocalCalendar calendar("UTC", icuLocale(std::string(length, 'a') + rest));
            EXPECT_FALSE(calendar.mediumTime(Instant()).empty()) << length << rest;
            EXPECT_FALSE(calendar.hourText(7).empty()) << length << rest;
            EXPECT_EQ(calendar.dateKey(Instant()), "1970-01-01");
        }
    }
}

} // namespace

} // namespace orrinvale
