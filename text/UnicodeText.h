// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace orrinvale
{

// Between our UTF-8 and the UTF-16 that ICU works on; what is broken becomes U+FFFD.
std::u16string utf16(std::string_view utf8);
std::string utf8(std::u16string_view utf16);

// Whether the character is a picture by itself (Emoji_Presentation of Unicode).
bool isPicture(char32_t character);

} // namespace orrinvale
