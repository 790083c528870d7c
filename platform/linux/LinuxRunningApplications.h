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

// Walks the process table in the background and keeps the newest result. Main thread.
class LinuxRunningApplications final : public RunningApplications
{
public:
    LinuxRunningApplications(MainQueue& queue, SerialQueue& background, std::string procFolder = "/proc");
    ~LinuxRunningApplications() override;

    const std::vector<RunningApplication>& applications() const override { return m_applications; }
    void refresh() override;
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

    // Takes the result of the look that is under way, if it ends within `bound`.
    void waitForRefresh(std::chrono::milliseconds bound);

private:
    void finish();

    MainQueue& m_queue;
    SerialQueue& m_background;
    std::shared_ptr<ApplicationWalk> m_walk; // touched in the background alone
    std::vector<RunningApplication> m_applications;
    std::future<std::vector<RunningApplication>> m_look; // the one under way
    Published<int> m_changes;
    Lifetime m_lifetime;
};

} // namespace orrinvale
