// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "base/Published.h"
#include "platform/SessionEvents.h"
#include "platform/macos/Workspace.h"

namespace orrinvale
{

// Merges the displays' sleep and the switch to another user into one flag. The system tells nothing of a lock alone.
class MacSessionEvents final : public SessionEvents
{
public:
    MacSessionEvents(Workspace& workspace, MainQueue& queue);

    [[nodiscard]] Cancellable observe(std::function<void(ScreenPresence)> onChange) override;

private:
    void follow(WorkspaceEvent event, bool& flag, bool value);
    ScreenPresence presence() const;

    Workspace& m_workspace;
    MainQueue& m_queue;
    bool m_isDisplayAsleep;
    bool m_isSwitchedAway;
    Published<ScreenPresence> m_presence;
    Cancellables m_cancellables;
};

} // namespace orrinvale
