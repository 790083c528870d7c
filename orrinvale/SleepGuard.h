// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace orrinvale
{

class PowerAssertions;

// Holds at most one power assertion against idle sleep. Owned by the engine; main thread.
class SleepGuard
{
public:
    explicit SleepGuard(PowerAssertions& assertions) : m_assertions(assertions) {}
    ~SleepGuard() { release(); }
    SleepGuard(const SleepGuard&) = delete;
    SleepGuard& operator=(const SleepGuard&) = delete;

    // Does nothing while one is held: an assertion keeps the name it was made with. A refusal is one console line and
    // leaves the guard without; the next call asks again.
    void acquire(std::string_view reason);
    void release();

    bool isHeld() const { return m_isHeld; }
    std::uint32_t assertionID() const { return m_assertionID; } // 0 while none is held

private:
    PowerAssertions& m_assertions;
    std::uint32_t m_assertionID = 0;
    bool m_isHeld = false;
};

} // namespace orrinvale
