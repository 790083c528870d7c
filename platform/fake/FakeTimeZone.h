// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "platform/TimeZone.h"

namespace orrinvale
{

class FakeTimeZone final : public TimeZone
{
public:
    void announceChange() { m_changes.set(m_changes.get() + 1); }

    Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
    }

private:
    Published<int> m_changes;
};

} // namespace orrinvale
