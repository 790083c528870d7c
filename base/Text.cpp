// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Text.h"

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr std::string_view replacement = "\xEF\xBF\xBD";

struct Sequence {
    std::size_t length; // bytes that belong together
    bool valid;
};

bool isContinuation(unsigned char byte, unsigned char low = 0x80, unsigned char high = 0xBF)
{
    return byte >= low && byte <= high;
}

// The well-formed byte sequences of the Unicode Standard, table 3-7.
Sequence sequenceAt(std::string_view bytes)
{
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const auto lead = at(0);
    if (lead < 0x80)
        return {1, true};
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0)
        return {1, false};
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (std::size_t i = 1; i < length; ++i) {
        if (i >= bytes.size() || !(i == 1 ? isContinuation(at(i), low, high) : isContinuation(at(i))))
            return {i, false};
    }
    return {length, true};
}

} // namespace

std::string validUtf8(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto [length, valid] = sequenceAt(bytes);
        text.append(valid ? bytes.substr(0, length) : replacement);
        bytes.remove_prefix(length);
    }
    return text;
}

std::string withVisibleControls(std::string_view utf8)
{
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        const auto next = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : 0;
        const auto isLineSeparator = utf8.substr(i, 3) == "\u2028" || utf8.substr(i, 3) == "\u2029";
        if (byte < 0x20 || byte == 0x7F) {
            // U+2400 to U+2421, in the order of what they stand for.
            const auto sign = byte == 0x7F ? 0x21 : byte;
            text.append("\xE2\x90").push_back(static_cast<char>(0x80 + sign));
        } else if (byte == 0xC2 && next >= 0x80 && next <= 0x9F) {
            text.append(replacement);
            i += 1;
        } else if (isLineSeparator) {
            text.append("\u2424");
            i += 2;
        } else {
            text.push_back(utf8[i]);
        }
    }
    return text;
}

std::string asciiLowercase(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

} // namespace orrinvale
