// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/UUID.h"

#include <cctype>

#include <uuid/uuid.h>

namespace orrinvale
{

namespace
{

constexpr std::size_t textLength = 36;

// Asked of every character, since not every system's reader is strict.
bool isWellFormed(std::string_view text)
{
    constexpr std::string_view form = "00000000-0000-0000-0000-000000000000";
    for (std::size_t i = 0; i < text.size() && i < form.size(); ++i) {
        const auto isRight = form[i] == '-' ? text[i] == '-' : std::isxdigit(static_cast<unsigned char>(text[i])) != 0;
        if (!isRight)
            return false;
    }
    return text.size() == form.size();
}

} // namespace

UUID UUID::random()
{
    UUID result;
    uuid_generate_random(result.m_bytes.data());
    return result;
}

std::optional<UUID> UUID::fromText(std::string_view text)
{
    UUID result;
    if (!isWellFormed(text) || uuid_parse(std::string(text).c_str(), result.m_bytes.data()) != 0)
        return std::nullopt;
    return result;
}

std::string UUID::text() const
{
    std::array<char, textLength + 1> buffer{};
    uuid_unparse_upper(m_bytes.data(), buffer.data());
    return {buffer.data(), textLength};
}

} // namespace orrinvale
