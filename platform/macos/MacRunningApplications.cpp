// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacRunningApplications.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace orrinvale
{

namespace
{

// In the order of their start; those that do not tell it come last.
std::vector<RunningApplication> inOrder(std::vector<WorkspaceApplication> found)
{
    const auto start = [](const WorkspaceApplication& each) {
        return each.launched.value_or(std::numeric_limits<double>::infinity());
    };
    std::stable_sort(found.begin(), found.end(),
                     [&](const auto& one, const auto& other) { return start(one) < start(other); });
    std::vector<RunningApplication> applications;
    for (auto& each : found)
        applications.push_back(std::move(each.application));
    return applications;
}

} // namespace

MacRunningApplications::MacRunningApplications(Workspace& workspace, MainQueue& queue)
    : m_workspace(workspace), m_queue(queue), m_applications(inOrder(workspace.applications()))
{
    for (const auto event : {WorkspaceEvent::applicationLaunched, WorkspaceEvent::applicationTerminated})
        m_cancellables += m_workspace.observe(event, [this] { refresh(); });
}

void MacRunningApplications::refresh()
{
    auto found = inOrder(m_workspace.applications());
    if (found == m_applications)
        return;
    m_applications = std::move(found);
    m_changes.set(m_changes.get() + 1);
}

Cancellable MacRunningApplications::observeChanges(std::function<void()> onChange)
{
    return m_changes.observeOn(
        m_queue, [onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
}

} // namespace orrinvale
