// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "platform/SessionEvents.h"

namespace orrinvale
{

class FakeSessionEvents final : public SessionEvents
{
public:
    void report(ScreenPresence presence) { m_presence.set(presence); }

    Cancellable observe(std::function<void(ScreenPresence)> onChange) override
    {
        return m_presence.observe(std::move(onChange), Deliver::changesOnly);
    }

private:
    Published<ScreenPresence> m_presence{ScreenPresence::awake};
};

} // namespace orrinvale
