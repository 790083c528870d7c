// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SleepGuard.h"

#include "base/ConsoleLine.h"
#include "platform/PowerAssertions.h"

#include <fmt/format.h>

namespace orrinvale
{

constexpr std::string_view assertionType = "NoIdleSleepAssertion";
constexpr std::uint32_t levelOn = 255;

void SleepGuard::acquire(std::string_view reason)
{
    if (m_isHeld)
        return;
    const auto [status, id] = m_assertions.create(assertionType, levelOn, reason);
    if (status != 0) {
        consoleLine("SleepGuard", fmt::format("failed to acquire assertion (error {})", status));
        return;
    }
    m_assertionID = id;
    m_isHeld = true;
}

void SleepGuard::release()
{
    if (!m_isHeld)
        return;
    m_assertions.release(m_assertionID);
    m_assertionID = 0;
    m_isHeld = false;
}

} // namespace orrinvale
