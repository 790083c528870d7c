// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ActivityLogStore.h"
#include "orrinvale/AppUsageTracker.h"
#include "orrinvale/BatteryMonitor.h"
#include "orrinvale/CPUMonitor.h"
#include "orrinvale/DownloadMonitor.h"
#include "orrinvale/NetworkActivityMonitor.h"
#include "orrinvale/ProcessDetector.h"
#include "orrinvale/SleepGuard.h"
#include "orrinvale/WakeMode.h"
#include "orrinvale/WakeState.h"

namespace orrinvale
{

class AppSettings;
class LocalCalendar;
struct Platform;

// The single decision point: combines what the detectors see with the user's mode and the battery rules, holds the
// power assertion while it decides to stay awake, counts the cooldown down, and logs every real change. One a process;
// owned by the application delegate; main thread.
class WakeEngine
{
public:
    static constexpr std::int64_t wakeThreshold = 3;   // the least total score that keeps the machine awake
    static constexpr std::int64_t cooldownPeriod = 30; // seconds
    static constexpr std::size_t longestLog = 200;     // entries in memory

    WakeEngine(const Platform& platform, AppSettings& settings, const LocalCalendar& calendar);

    Published<WakeState> state;
    Published<WakeMode> mode; // who assigns it calls evaluate() next
    Published<WakeSignals> activeSignals;
    Published<std::vector<ActivityEntry>> activityLog; // newest first

    void start();
    // Ends everything and frees the assertion; state and log stay as they are, and a pending save is not waited for.
    void stop();
    // Decides anew, at once.
    void evaluate();

    ActivityLogStore& logStore() { return m_logStore; }
    AppUsageTracker& appUsageTracker() { return m_appUsageTracker; }
    const SleepGuard& sleepGuard() const { return m_sleepGuard; }

private:
    void subscribeToDetectors();
    void subscribeToSettingsAndBattery();
    std::optional<std::string> batteryPauseReason() const;
    bool isWorthStayingAwake() const;
    std::string strongestDetail() const;
    void transition(WakeState to, const std::string& message);
    void startCooldown();
    void cooldownTick();
    void cancelCooldown();

    MainQueue& m_queue;
    const Clock& m_clock;
    DownloadMonitor m_downloadMonitor;
    NetworkActivityMonitor m_networkMonitor;
    ProcessDetector m_processDetector;
    CPUMonitor m_cpuMonitor;
    SleepGuard m_sleepGuard;
    AppSettings& m_settings;
    ActivityLogStore m_logStore;
    AppUsageTracker m_appUsageTracker;
    BatteryMonitor m_batteryMonitor;
    std::int64_t m_cooldownSeconds = 0;
    Cancellable m_cooldownTimer; // stands exactly while a countdown runs
    Cancellables m_cancellables;
};

} // namespace orrinvale
