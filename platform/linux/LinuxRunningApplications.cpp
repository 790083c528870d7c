// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxRunningApplications.h"

#include "platform/linux/ApplicationWalk.h"

#include <future>

namespace orrinvale
{

struct LinuxRunningApplications::Look {
    LinuxRunningApplications& owner;
    std::promise<std::vector<RunningApplication>> promise{};
    std::future<std::vector<RunningApplication>> result = promise.get_future();
};

LinuxRunningApplications::LinuxRunningApplications(MainQueue& queue, SerialQueue& background, std::string procFolder)
    : m_queue(queue), m_background(background),
      m_walk(std::make_shared<ApplicationWalk>(std::move(procFolder), userEntryFolders()))
{
}

LinuxRunningApplications::~LinuxRunningApplications() = default;

void LinuxRunningApplications::refresh()
{
    if (m_look)
        return;
    m_look = std::make_shared<Look>(Look{*this});
    m_background.post([&queue = m_queue, walk = m_walk, weak = std::weak_ptr(m_look)] {
        if (const auto look = weak.lock())
            look->promise.set_value(walk->walk(std::chrono::steady_clock::now()));
        queue.post([weak] {
            if (const auto look = weak.lock())
                look->owner.finish(look);
        });
    });
}

void LinuxRunningApplications::waitForRefresh(std::chrono::milliseconds bound)
{
    const auto look = m_look;
    if (look && look->result.wait_for(bound) == std::future_status::ready)
        finish(look);
}

void LinuxRunningApplications::finish(const std::shared_ptr<Look>& look)
{
    if (look != m_look)
        return;
    m_look.reset();
    auto found = look->result.get();
    if (found == m_applications)
        return;
    m_applications = std::move(found);
    m_changes.set(m_changes.get() + 1);
}

Cancellable LinuxRunningApplications::observeChanges(std::function<void()> onChange)
{
    return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
}

} // namespace orrinvale
