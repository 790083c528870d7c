// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "base/Published.h"
#include "orrinvale/CustomProcess.h"
#include "orrinvale/WakeSignal.h"

namespace orrinvale
{

class Clock;
class MediaDevices;
class RunningApplications;
struct Platform;

// An application whose running keeps the machine awake.
struct WatchedProcess {
    std::string bundleID; // compared to the letter
    std::string label;    // the signal's detail
    std::int64_t score;
    bool requiresMediaActivity; // counts only while a camera or a microphone is in use
};

// Sees watched applications among the running ones: every 10 seconds, when the user's list changed, when the list of
// running applications did and when a device's use did. Owned by the engine; main thread.
class ProcessDetector
{
public:
    explicit ProcessDetector(const Platform& platform);

    Published<WakeSignals> signals; // replaced by every evaluation, equal or not

    static const std::vector<WatchedProcess>& builtinProcesses();

    void start();
    void stop();
    // Applications were launched or ended.
    void appsChanged() { evaluate(); }
    // Evaluates at once, started or not.
    void updateCustomProcesses(const std::vector<CustomProcess>& list);

private:
    void evaluate();
    bool isMediaActiveFor(const std::vector<WatchedProcess>& watched) const;
    void publishLater(WakeSignals found);

    RunningApplications& m_applications;
    MediaDevices& m_media;
    MainQueue& m_queue;
    const Clock& m_clock;
    std::vector<WatchedProcess> m_customProcesses;
    Cancellable m_timer;
    Cancellable m_changes;
    Cancellable m_mediaChanges;
    Lifetime m_lifetime; // renewed by stop(), so that what is still queued finds nobody
};

} // namespace orrinvale
