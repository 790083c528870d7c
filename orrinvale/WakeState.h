// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ActivityEntry.h"

#include <cstdint>
#include <string>
#include <utility>

namespace orrinvale
{

// What the engine has decided. A plain value; equal when case and payload are equal.
class WakeState
{
public:
    enum class Case { awake, cooldown, idle };

    WakeState() = default;
    static WakeState awake(std::string reason) { return {Case::awake, std::move(reason), 0}; }
    static WakeState cooldown(std::int64_t secondsRemaining) { return {Case::cooldown, {}, secondsRemaining}; }
    static WakeState idle() { return {}; }

    Case kind() const { return m_case; }
    bool isAwake() const { return m_case == Case::awake; }
    bool isIdle() const { return m_case == Case::idle; }
    const std::string& reason() const { return m_reason; }               // empty unless awake
    std::int64_t secondsRemaining() const { return m_secondsRemaining; } // 0 unless cooling down

    // One line for the user.
    std::string statusText() const;
    PersistedStateCategory persistedCategory() const;

    friend bool operator==(const WakeState&, const WakeState&) = default;

private:
    WakeState(Case kind, std::string reason, std::int64_t secondsRemaining)
        : m_case(kind), m_reason(std::move(reason)), m_secondsRemaining(secondsRemaining)
    {
    }

    Case m_case = Case::idle;
    std::string m_reason;
    std::int64_t m_secondsRemaining = 0;
};

} // namespace orrinvale
