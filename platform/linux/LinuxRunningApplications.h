// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "base/MainQueue.h"
#include "base/Published.h"
#include "base/SerialQueue.h"
#include "platform/RunningApplications.h"

#include <chrono>
#include <future>
#include <memory>

namespace orrinvale
{

class ApplicationWalk;
class DesktopEntryFolders;

// Walks the process table in the background and keeps the newest result. Desktop entries are read on a queue of their
// own: a folder that hangs keeps new ones from being known, and holds up no look. Main thread.
class LinuxRunningApplications final : public RunningApplications
{
public:
    LinuxRunningApplications(MainQueue& queue, SerialQueue& background, SerialQueue& applicationFiles,
                             std::string procFolder = "/proc");
    ~LinuxRunningApplications() override;

    const std::vector<RunningApplication>& applications() const override { return m_applications; }
    void refresh() override;
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

    // Takes the result of the look that is under way, if it ends within `bound`.
    void waitForRefresh(std::chrono::milliseconds bound);

private:
    void readEntries();
    void look();
    void finish();

    MainQueue& m_queue;
    SerialQueue& m_background;
    SerialQueue& m_applicationFiles;
    std::shared_ptr<DesktopEntryFolders> m_entries;
    std::shared_ptr<ApplicationWalk> m_walk; // touched in the background alone
    // How long a look waits for the first reading of the entries; the first look alone does.
    std::chrono::milliseconds m_entriesBound{100};
    bool m_isReading = false;
    std::vector<RunningApplication> m_applications;
    std::future<std::vector<RunningApplication>> m_look; // the one under way
    Published<int> m_changes;
    Lifetime m_lifetime;
};

} // namespace orrinvale
