// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacUserLocale.h"

#include "platform/macos/CFObject.h"

#include <algorithm>

namespace orrinvale
{

constexpr auto fallback = "en_US";

std::string MacUserLocale::dates() const
{
    const CFObject<CFLocaleRef> current(CFLocaleCopyCurrent());
    return current ? textOf(CFLocaleGetIdentifier(current.get())).value_or(fallback) : fallback;
}

std::string MacUserLocale::collation() const
{
    const CFObject<CFTypeRef> preferred(CFLocaleCopyPreferredLanguages());
    const auto languages = arrayOf(preferred.get());
    if (!languages || CFArrayGetCount(languages) < 1)
        return dates();
    auto name = textOf(CFArrayGetValueAtIndex(languages, 0)).value_or(fallback);
    std::replace(name.begin(), name.end(), '-', '_'); // a language tag, which ICU spells with another line
    return name;
}

} // namespace orrinvale
