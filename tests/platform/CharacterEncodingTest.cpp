// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/CharacterEncoding.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <map>
#include <string>

#include <langinfo.h>

using namespace orrinvale;

namespace
{

using Variables = std::map<std::string, std::string>;

constexpr const char* names[] = {"LANG", "LC_ALL", "LC_CTYPE", "LC_TIME", "LC_COLLATE"};

// What useUTF8() makes of an environment with just these.
Variables after(const Variables& given)
{
    for (const auto* name : names)
        ::unsetenv(name);
    for (const auto& [name, value] : given)
        ::setenv(name.c_str(), value.c_str(), 1);
    useUTF8();
    Variables found;
    for (const auto* name : names) {
        if (const auto* value = std::getenv(name))
            found[name] = value;
    }
    return found;
}

std::string encoding()
{
    return std::setlocale(LC_ALL, "") ? ::nl_langinfo(CODESET) : "not installed";
}

TEST(CharacterEncoding, AnEnvironmentOfUTF8StaysAsItIs)
{
    for (const auto& given : {Variables{{"LANG", "C.UTF-8"}}, Variables{{"LC_ALL", "C.UTF-8"}, {"LANG", "de_DE"}},
                              Variables{{"LC_CTYPE", "C.UTF-8"}, {"LC_TIME", "POSIX"}}}) {
        EXPECT_EQ(after(given), given);
        EXPECT_EQ(encoding(), "UTF-8");
    }
}

TEST(CharacterEncoding, WithoutOneTheCharactersAreUTF8AndNothingElseChanges)
{
    EXPECT_EQ(after({}), (Variables{{"LC_CTYPE", "C.UTF-8"}}));
    EXPECT_EQ(encoding(), "UTF-8");
    EXPECT_EQ(after({{"LANG", "C"}, {"LC_TIME", "POSIX"}}),
              (Variables{{"LANG", "C"}, {"LC_TIME", "POSIX"}, {"LC_CTYPE", "C.UTF-8"}}));
    EXPECT_EQ(after({{"LC_ALL", ""}, {"LC_CTYPE", "POSIX"}}), (Variables{{"LC_ALL", ""}, {"LC_CTYPE", "C.UTF-8"}}));
    EXPECT_EQ(encoding(), "UTF-8");
}

TEST(CharacterEncoding, WhatOverrulesEverythingStillDecidesOnLanguageAndRegion)
{
    EXPECT_EQ(after({{"LC_ALL", "POSIX"}, {"LC_TIME", "C.UTF-8"}, {"LANG", "C.UTF-8"}}),
              (Variables{{"LANG", "POSIX"}, {"LC_CTYPE", "C.UTF-8"}}));
    EXPECT_EQ(encoding(), "UTF-8");
}

TEST(CharacterEncoding, ALocaleThatIsNotInstalledIsLeftToQtToWarnOf)
{
    const Variables given{{"LANG", "xx_XX.UTF-8"}, {"LC_COLLATE", "C"}};
    EXPECT_EQ(after(given), given);
}

} // namespace
