// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WakeState.h"

#include <fmt/format.h>

namespace orrinvale
{

std::string WakeState::statusText() const
{
    switch (m_case) {
    case Case::awake:
        return m_reason;
    case Case::cooldown:
        return fmt::format("Going idle in {}s…", m_secondsRemaining);
    case Case::idle:
        break;
    }
    return "System may sleep normally";
}

PersistedStateCategory WakeState::persistedCategory() const
{
    switch (m_case) {
    case Case::awake:
        return PersistedStateCategory::awake;
    case Case::cooldown:
        return PersistedStateCategory::cooldown;
    case Case::idle:
        break;
    }
    return PersistedStateCategory::idle;
}

} // namespace orrinvale
