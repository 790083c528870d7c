// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>

// What libFuzzer calls with each input, and Replay.cpp with each file of a corpus.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace orrinvale
{

// Ends the process when what must hold for every input does not.
void require(bool holds, const char* rule);

// The bytes of one input, taken from the front: texts up to a separator that no UTF-8 holds, and numbers. Past its end
// there are empty texts and zeros. The bytes outlive it.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t* data, std::size_t size);

    bool isEmpty() const { return m_bytes.empty(); }
    std::string_view piece();
    std::string_view rest();

    template <typename Number>
    Number number()
    {
        static_assert(std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>);
        Number number{};
        take(&number, sizeof number);
        return number;
    }
    // 0 … limit - 1; the limit is at most 256.
    int below(int limit) { return number<std::uint8_t>() % limit; }

private:
    void take(void* number, std::size_t size);

    std::string_view m_bytes;
};

} // namespace orrinvale
