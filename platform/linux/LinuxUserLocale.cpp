// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserLocale.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <initializer_list>
#include <utility>

namespace orrinvale
{

namespace
{

// The modifiers of the C library's locales that name a script.
struct Script {
    std::string_view modifier;
    std::string_view code;
};
constexpr std::array scripts{Script{"latin", "Latn"}, Script{"cyrillic", "Cyrl"}, Script{"devanagari", "Deva"}};

std::string_view scriptOf(std::string_view modifier)
{
    for (const auto& script : scripts) {
        if (script.modifier == modifier)
            return script.code;
    }
    return {};
}

bool isAlphanumeric(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// A language and up to four more parts of at most eight characters each, as every tag of a language has: ICU keeps them
// in arrays that longer ones overrun.
bool isWellFormed(std::string_view name)
{
    constexpr std::size_t longestPart = 8;
    constexpr int mostParts = 5;
    for (int part = 0; part < mostParts; ++part) {
        const auto end = std::min(name.find('_'), name.size());
        const auto text = name.substr(0, end);
        if (text.empty() || text.size() > longestPart || !std::all_of(text.begin(), text.end(), isAlphanumeric))
            return false;
        if (end == name.size())
            return true;
        name.remove_prefix(end + 1);
    }
    return false;
}

std::string localeIn(const EnvironmentLookup& environment, std::initializer_list<const char*> variables)
{
    for (const auto* variable : variables) {
        const auto* value = environment(variable);
        if (value && *value) // an empty one counts as not set
            return icuLocale(value);
    }
    return icuLocale("C");
}

} // namespace

std::string icuLocale(std::string_view posixLocale)
{
    const auto at = posixLocale.find('@');
    const auto script = at == posixLocale.npos ? std::string_view() : scriptOf(posixLocale.substr(at + 1));
    const std::string name(posixLocale.substr(0, posixLocale.find_first_of(".@")));
    if (name == "C" || name == "POSIX" || !isWellFormed(name))
        return "en_US"; // not en_US_POSIX, whose collation tells A from a before all else
    if (script.empty())
        return name;
    const auto language = name.substr(0, name.find('_'));
    return language + "_" + std::string(script) + name.substr(language.size());
}

LinuxUserLocale::LinuxUserLocale(EnvironmentLookup environment) : m_environment(std::move(environment)) {}

LinuxUserLocale::LinuxUserLocale() : LinuxUserLocale(&std::getenv) {}

std::string LinuxUserLocale::dates() const
{
    return localeIn(m_environment, {"LC_ALL", "LC_TIME", "LANG"});
}

std::string LinuxUserLocale::collation() const
{
    return localeIn(m_environment, {"LC_ALL", "LC_COLLATE", "LANG"});
}

} // namespace orrinvale
