// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "base/Published.h"
#include "base/SerialQueue.h"
#include "orrinvale/WakeSignal.h"

#include <memory>

namespace orrinvale
{

class AppSettings;
class FolderWatcher;
struct FolderEntry;
struct Platform;

// Sees partial downloads in the user's Downloads folder: on each change of the folder, and every 5 seconds. The folder
// is opened and listed on a queue of its own with a copy of the path, so that a slow file system holds up nothing else;
// a new path gets a new queue, and what the old one still finds is dropped. Owned by the engine; main thread.
class DownloadMonitor
{
public:
    DownloadMonitor(const Platform& platform, AppSettings& settings);

    Published<WakeSignals> signals; // replaced by every scan, equal or not

    void start();
    void stop();

private:
    void startWatching();
    void finishWatching(Cancellable token);
    void retarget();
    void scan();
    void finishScan(std::optional<WakeSignals> found);

    AppSettings& m_settings;
    FolderWatcher& m_folders;
    MainQueue& m_queue;
    SerialQueues& m_serialQueues;
    const Clock& m_clock;
    std::unique_ptr<SerialQueue> m_scans;
    bool m_isScanning = false;
    bool m_scanAgain = false;
    Cancellable m_dispatchSource;
    Cancellable m_pollTimer;
    Cancellable m_settingsCancellable;
    Lifetime m_lifetime; // renewed with each watch: what an earlier folder still finds is dropped
};

// The active downloads among a folder's entries, in their order: a known partial suffix, and modified less than 10
// seconds before `now`. Thread-safe.
WakeSignals activeDownloads(const std::vector<FolderEntry>& entries, Instant now);

} // namespace orrinvale
