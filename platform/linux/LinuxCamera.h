// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"
#include "base/Lifetime.h"
#include "base/MainQueue.h"
#include "base/Published.h"
#include "base/SerialQueue.h"

#include <cstdint>
#include <future>
#include <optional>
#include <string>

namespace orrinvale
{

// Whether a process of the user's holds a capture device open. Descriptors are looked through in the background, when
// asked and only after a device was opened or closed, or at every question while the kernel refuses to tell of that.
// Processes of other users cannot be seen. Main thread.
class LinuxCamera
{
public:
    LinuxCamera(MainQueue& queue, SerialQueue& background, std::string deviceFolder = "/dev",
                std::string procFolder = "/proc");

    // The first question waits for the look, at most 100 ms; a later one gives the newest finished answer.
    bool isInUse();
    // Called in a turn of its own after a look has ended with another answer than the one that was given.
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange);

private:
    bool hasChanged();
    bool takeEvents();
    bool watchDevices();
    bool watch(const std::string& path, std::uint32_t events);
    void lookIfStale();
    void finish(std::optional<bool> found);

    MainQueue& m_queue;
    SerialQueue& m_background;
    std::string m_deviceFolder;
    std::string m_procFolder;
    Descriptor m_inotify;
    bool m_wasAsked = false;
    bool m_isInUse = false;
    bool m_isStale = true;
    bool m_isUnknown = false;  // the last look failed
    bool m_isWatching = false; // the kernel tells of every device
    bool m_isLooking = false;
    std::future<std::optional<bool>> m_look; // the answer of the one under way
    Published<int> m_changes;
    Lifetime m_lifetime;
};

} // namespace orrinvale
