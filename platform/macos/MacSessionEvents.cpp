// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacSessionEvents.h"

namespace orrinvale
{

MacSessionEvents::MacSessionEvents(Workspace& workspace, MainQueue& queue)
    : m_workspace(workspace), m_queue(queue), m_isDisplayAsleep(workspace.isDisplayAsleep()),
      m_isSwitchedAway(!workspace.isSessionOnConsole()), m_presence(presence())
{
    follow(WorkspaceEvent::screensSlept, m_isDisplayAsleep, true);
    follow(WorkspaceEvent::screensWoke, m_isDisplayAsleep, false);
    follow(WorkspaceEvent::sessionResigned, m_isSwitchedAway, true);
    follow(WorkspaceEvent::sessionActivated, m_isSwitchedAway, false);
}

void MacSessionEvents::follow(WorkspaceEvent event, bool& flag, bool value)
{
    m_cancellables += m_workspace.observe(event, [this, &flag, value] {
        flag = value;
        if (presence() != m_presence.get())
            m_presence.set(presence());
    });
}

ScreenPresence MacSessionEvents::presence() const
{
    return m_isDisplayAsleep || m_isSwitchedAway ? ScreenPresence::asleep : ScreenPresence::awake;
}

Cancellable MacSessionEvents::observe(std::function<void(ScreenPresence)> onChange)
{
    if (m_presence.get() == ScreenPresence::awake)
        return m_presence.observe(std::move(onChange), Deliver::changesOnly);
    return m_presence.observeOn(m_queue, std::move(onChange));
}

} // namespace orrinvale
