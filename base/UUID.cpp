// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/UUID.h"

#include <uuid.h>

namespace orrinvale
{

constexpr std::size_t textLength = 36;

UUID UUID::random()
{
    UUID result;
    uuid_generate_random(result.m_bytes.data());
    return result;
}

std::optional<UUID> UUID::fromText(std::string_view text)
{
    UUID result;
    if (text.size() != textLength ||
        uuid_parse_range(text.data(), text.data() + text.size(), result.m_bytes.data()) != 0)
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
