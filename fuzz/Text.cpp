// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// Timestamps, identifiers, Unicode, sorting, searching and shortening.
#include "base/Text.h"

#include "base/Timestamp.h"
#include "base/UUID.h"
#include "fuzz/FuzzInput.h"
#include "orrinvale/SettingsTexts.h"
#include "platform/linux/LinuxUserLocale.h"
#include "text/LocalizedText.h"
#include "text/UnicodeText.h"

#include <array>

using namespace orrinvale;

namespace
{

void readForms(std::string_view text)
{
    if (const auto instant = timestampFromText(text))
        require(timestampText(*instant) == text, "a timestamp is written as it was read");
    if (const auto id = UUID::fromText(text))
        require(UUID::fromText(id->text()) == id, "an identifier is written as it was read");
}

void readUnicode(std::string_view text)
{
    const auto valid = validUtf8(text);
    require(validUtf8(valid) == valid, "what is valid stays as it is");
    require(utf8(utf16(valid)) == valid, "UTF-16 holds all that UTF-8 does");
    require(utf16(text) == utf16(valid), "what is broken is broken in the same way everywhere");
    const auto visible = withVisibleControls(valid);
    require(validUtf8(visible) == visible, "visible signs are valid");
    for (const char character : visible)
        require(static_cast<unsigned char>(character) >= ' ' && character != '\x7f', "no control character is left");
    asciiLowercase(text);
}

void compare(std::string_view first, std::string_view second, const std::string& locale)
{
    const auto keys = sortKeys({first, second}, locale);
    require(keys.size() == 2 && (first != second || keys[0] == keys[1]), "the same text has the same key");
    const auto form = searchForm(first, locale);
    require(contains(form, u""), "the empty text is in every one");
    contains(form, searchForm(second, locale));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::array<std::string, 8> locales{"en_US", "tr_TR", "de_DE",      "ar_EG",
                                                    "th_TH", "ja_JP", "sr_Latn_RS", "xx"};
    FuzzInput input(data, size);
    const auto& locale = locales[input.below(8)];
    const auto first = input.piece();
    const auto second = input.rest();
    readForms(first);
    readUnicode(first);
    readUnicode(second);
    compare(first, second, locale);
    abbreviatedWithTilde(first, second);
    icuLocale(first);
    return 0;
}
