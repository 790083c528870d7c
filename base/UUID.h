// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

// A universally unique identifier; `random()` makes a version 4 one.
class UUID
{
public:
    static UUID random();
    // Exactly 8-4-4-4-12 hexadecimal digits in either case; nullopt for anything else.
    static std::optional<UUID> fromText(std::string_view text);

    // 36 characters, upper case.
    std::string text() const;

    friend auto operator<=>(const UUID&, const UUID&) = default;

private:
    std::array<std::uint8_t, 16> m_bytes{};
};

} // namespace orrinvale
