// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace orrinvale
{

using Instant = std::chrono::system_clock::time_point;
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
    Instant now() const override { return std::chrono::system_clock::now(); }
};

} // namespace orrinvale
