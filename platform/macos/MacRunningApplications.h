// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "base/Published.h"
#include "platform/macos/Workspace.h"

namespace orrinvale
{

// The workspace's list, read when an application comes or goes and when asked to. Main thread.
class MacRunningApplications final : public RunningApplications
{
public:
    MacRunningApplications(Workspace& workspace, MainQueue& queue);

    const std::vector<RunningApplication>& applications() const override { return m_applications; }
    void refresh() override; // at once
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

private:
    Workspace& m_workspace;
    MainQueue& m_queue;
    std::vector<RunningApplication> m_applications;
    Published<int> m_changes;
    Cancellables m_cancellables;
};

} // namespace orrinvale
