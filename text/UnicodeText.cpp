// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "text/UnicodeText.h"

#include <cstdint>

#include <unicode/uchar.h>
#include <unicode/ustring.h>

namespace orrinvale
{

constexpr UChar32 replacement = 0xFFFD;

std::u16string utf16(std::string_view utf8)
{
    std::u16string text(utf8.size(), u'\0'); // never more units than bytes
    std::int32_t length = 0;
    auto error = U_ZERO_ERROR;
    u_strFromUTF8WithSub(text.data(), static_cast<std::int32_t>(text.size()), &length, utf8.data(),
                         static_cast<std::int32_t>(utf8.size()), replacement, nullptr, &error);
    text.resize(U_FAILURE(error) ? 0 : static_cast<std::size_t>(length));
    return text;
}

std::string utf8(std::u16string_view utf16)
{
    std::string text(utf16.size() * 3, '\0'); // a unit becomes three bytes at most
    std::int32_t length = 0;
    auto error = U_ZERO_ERROR;
    u_strToUTF8WithSub(text.data(), static_cast<std::int32_t>(text.size()), &length, utf16.data(),
                       static_cast<std::int32_t>(utf16.size()), replacement, nullptr, &error);
    text.resize(U_FAILURE(error) ? 0 : static_cast<std::size_t>(length));
    return text;
}

bool isPicture(char32_t character)
{
    return u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_EMOJI_PRESENTATION);
}

} // namespace orrinvale
