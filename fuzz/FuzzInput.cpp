// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzInput.h"

#include "base/Fatal.h"

#include <algorithm>
#include <cstring>

namespace orrinvale
{

namespace
{

constexpr auto separator = '\xff';

} // namespace

void require(bool holds, const char* rule)
{
    if (!holds)
        fatal(rule);
}

FuzzInput::FuzzInput(const std::uint8_t* data, std::size_t size) : m_bytes(reinterpret_cast<const char*>(data), size) {}

std::string_view FuzzInput::piece()
{
    const auto end = std::min(m_bytes.find(separator), m_bytes.size());
    const auto piece = m_bytes.substr(0, end);
    m_bytes.remove_prefix(std::min(end + 1, m_bytes.size()));
    return piece;
}

std::string_view FuzzInput::rest()
{
    const auto rest = m_bytes;
    m_bytes = {};
    return rest;
}

void FuzzInput::take(void* number, std::size_t size)
{
    const auto count = std::min(size, m_bytes.size());
    if (count > 0)
        std::memcpy(number, m_bytes.data(), count);
    m_bytes.remove_prefix(count);
}

} // namespace orrinvale
