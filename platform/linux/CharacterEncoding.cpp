// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/CharacterEncoding.h"

#include <clocale>
#include <cstdlib>
#include <string>
#include <string_view>

#include <langinfo.h>

namespace orrinvale
{

namespace
{

constexpr const char* categories[] = {"LC_CTYPE",    "LC_NUMERIC",   "LC_TIME",        "LC_COLLATE",
                                      "LC_MONETARY", "LC_MESSAGES",  "LC_PAPER",       "LC_NAME",
                                      "LC_ADDRESS",  "LC_TELEPHONE", "LC_MEASUREMENT", "LC_IDENTIFICATION"};

bool isUTF8()
{
    return std::string_view(::nl_langinfo(CODESET)) == "UTF-8";
}

// The same in other words, which leave room for an exception: LC_ALL overrules each category, LANG none.
void spellOutLCAll()
{
    const auto* all = std::getenv("LC_ALL");
    if (!all || !*all) // an empty one counts as not set
        return;
    ::setenv("LANG", std::string(all).c_str(), 1);
    for (const auto* category : categories)
        ::unsetenv(category);
    ::unsetenv("LC_ALL");
}

} // namespace

void useUTF8()
{
    const auto isInstalled = std::setlocale(LC_ALL, "") != nullptr;
    if (!isInstalled || isUTF8())
        return;
    spellOutLCAll();
    ::setenv("LC_CTYPE", "C.UTF-8", 1);
}

} // namespace orrinvale
