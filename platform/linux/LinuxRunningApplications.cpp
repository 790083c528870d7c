// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxRunningApplications.h"

#include "platform/linux/ApplicationWalk.h"
#include "platform/linux/DesktopEntryFolders.h"

#include <utility>

namespace orrinvale
{

LinuxRunningApplications::LinuxRunningApplications(MainQueue& queue, SerialQueue& background,
                                                   SerialQueue& applicationFiles, std::string procFolder)
    : m_queue(queue), m_background(background), m_applicationFiles(applicationFiles),
      m_entries(std::make_shared<DesktopEntryFolders>(userEntryFolders())),
      m_walk(std::make_shared<ApplicationWalk>(std::move(procFolder)))
{
}

LinuxRunningApplications::~LinuxRunningApplications() = default;

void LinuxRunningApplications::refresh()
{
    readEntries();
    look();
}

void LinuxRunningApplications::readEntries()
{
    if (std::exchange(m_isReading, true))
        return;
    const auto finishReading = m_lifetime.unlessGone([this](bool areNew) {
        m_isReading = false;
        if (areNew)
            look();
    });
    m_applicationFiles.post([entries = m_entries, &queue = m_queue, finishReading] {
        if (!finishReading.isGone())
            queue.post([finishReading, areNew = entries->update()] { finishReading(areNew); });
    });
}

void LinuxRunningApplications::look()
{
    if (m_look.valid())
        return;
    const auto look = std::make_shared<std::promise<std::vector<RunningApplication>>>(); // shared, since work is copied
    m_look = look->get_future();
    m_background.post([&queue = m_queue, walk = m_walk, entries = m_entries, bound = m_entriesBound, look,
                       finish = m_lifetime.unlessGone([this] { finish(); })] {
        if (finish.isGone())
            return;
        look->set_value(walk->walk(entries->newest(bound), std::chrono::steady_clock::now()));
        queue.post(finish);
    });
    m_entriesBound = {};
}

void LinuxRunningApplications::waitForRefresh(std::chrono::milliseconds bound)
{
    if (m_look.valid())
        m_look.wait_for(bound);
    finish();
}

// Does nothing when the result has been taken already, or the one under way now is a later one.
void LinuxRunningApplications::finish()
{
    if (!m_look.valid() || m_look.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    auto found = m_look.get();
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
