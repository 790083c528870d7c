// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace orrinvale
{

// In microseconds: it holds every date that four digits of a year can tell, where nanoseconds end in 2262.
using Instant = std::chrono::time_point<std::chrono::system_clock, std::chrono::microseconds>;
using Seconds = std::chrono::duration<double>;

// The wall clock. `now()` may be called on any thread.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual Instant now() const = 0;
};

class SystemClock final : public Clock
{
public:
    Instant now() const override
    {
        return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
    }
};

} // namespace orrinvale
