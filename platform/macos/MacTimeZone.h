// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "base/Published.h"
#include "platform/TimeZone.h"
#include "platform/macos/Workspace.h"

namespace orrinvale
{

// The system's own word that its zone is another. Main thread.
class MacTimeZone final : public TimeZone
{
public:
    MacTimeZone(Workspace& workspace, MainQueue& queue)
        : m_queue(queue),
          m_observer(workspace.observe(WorkspaceEvent::timeZoneChanged, [this] { m_changes.set(m_changes.get() + 1); }))
    {
    }

    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_changes.observeOn(
            m_queue, [onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
    }

private:
    MainQueue& m_queue;
    Published<int> m_changes;
    Cancellable m_observer;
};

} // namespace orrinvale
