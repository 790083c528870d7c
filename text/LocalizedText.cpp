// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "text/LocalizedText.h"

#include "base/Fatal.h"
#include "text/UnicodeText.h"

#include <memory>

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

namespace orrinvale
{

namespace
{

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, CloseCollator>;

template <typename Text>
std::int32_t lengthOf(const Text& text)
{
    return static_cast<std::int32_t>(text.size());
}

Collator openCollator(const std::string& locale)
{
    auto error = U_ZERO_ERROR;
    Collator collator(ucol_open(locale.c_str(), &error));
    if (U_FAILURE(error))
        fatal("no collation");
    ucol_setStrength(collator.get(), UCOL_SECONDARY);
    return collator;
}

// ICU's functions tell how much room they need; `fill` is called again with that much when it was too little.
template <typename Text, typename Fill>
Text filled(std::size_t room, Fill fill)
{
    Text text(room, typename Text::value_type());
    for (;;) {
        const auto needed = static_cast<std::size_t>(fill(text));
        const auto fits = needed <= text.size();
        text.resize(needed);
        if (fits)
            return text;
    }
}

std::string sortKey(const Collator& collator, const std::u16string& text)
{
    return filled<std::string>(text.size() * 4, [&](std::string& key) {
        return ucol_getSortKey(collator.get(), text.data(), lengthOf(text), reinterpret_cast<std::uint8_t*>(key.data()),
                               lengthOf(key));
    });
}

std::u16string composed(const std::u16string& text)
{
    auto error = U_ZERO_ERROR;
    const auto* normalizer = unorm2_getNFCInstance(&error);
    return filled<std::u16string>(text.size(), [&](std::u16string& result) {
        error = U_ZERO_ERROR;
        return unorm2_normalize(normalizer, text.data(), lengthOf(text), result.data(), lengthOf(result), &error);
    });
}

// In Turkish and Azeri, I is the capital of dotless ı.
std::uint32_t foldingOf(const std::string& locale)
{
    const auto language = locale.substr(0, locale.find('_'));
    return language == "tr" || language == "az" ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
}

std::u16string caseFolded(const std::u16string& text, std::uint32_t folding)
{
    return filled<std::u16string>(text.size(), [&](std::u16string& result) {
        auto error = U_ZERO_ERROR;
        return u_strFoldCase(result.data(), lengthOf(result), text.data(), lengthOf(text), folding, &error);
    });
}

bool isCharacterEnd(std::u16string_view text, std::size_t position)
{
    if (position == text.size())
        return true;
    UChar32 next = 0;
    U16_GET(text.data(), 0, position, text.size(), next);
    return u_getCombiningClass(next) == 0;
}

} // namespace

std::vector<std::string> sortKeys(const std::vector<std::string_view>& texts, const std::string& locale)
{
    const auto collator = openCollator(locale);
    std::vector<std::string> keys;
    keys.reserve(texts.size());
    for (const auto text : texts)
        keys.push_back(sortKey(collator, utf16(text)));
    return keys;
}

std::u16string searchForm(std::string_view text, const std::string& locale)
{
    return composed(caseFolded(composed(utf16(text)), foldingOf(locale)));
}

bool contains(std::u16string_view text, std::u16string_view part)
{
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1)) {
        if (isCharacterEnd(text, at + part.size()))
            return true;
    }
    return false;
}

} // namespace orrinvale
