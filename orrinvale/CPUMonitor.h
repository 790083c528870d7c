// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "orrinvale/WakeSignal.h"
#include "platform/CPUCounters.h"

namespace orrinvale
{

class AppSettings;
class Clock;
class ProcessStatus;
class RunningApplications;
struct Platform;

// Turns sustained processor load into one signal: every 5 seconds it measures the whole machine and its busiest core,
// and after two busy samples in a row it names the load and, where known, its cause. Owned by the engine; main thread.
class CPUMonitor
{
public:
    CPUMonitor(const Platform& platform, AppSettings& settings);

    Published<WakeSignals> signals; // empty, or one; replaced when its detail changed

    void start();
    void stop();

private:
    struct Load { // percent
        double overall;
        double peak; // at least `overall`
    };

    void readThresholds();
    void sample();
    Load measure();
    double readSystemLoad();
    double busiestCore(const std::vector<std::int32_t>& ticks) const;
    bool isBusy(Load load) const;
    void clearSignals();
    WakeSignal loadSignal(Load load);
    void nameCause(WakeSignal& signal);

    AppSettings& m_settings;
    CPUCounters& m_counters;
    ProcessStatus& m_processStatus;
    RunningApplications& m_applications;
    MainQueue& m_queue;
    const Clock& m_clock;
    double m_busyThreshold = 40.0; // percent, as the next two
    double m_highThreshold = 70.0;
    double m_singleCoreThreshold = 50.0;
    std::int64_t m_busyCount = 0; // busy samples in a row
    std::vector<std::int32_t> m_prevCPUInfo;
    std::optional<CPUCounters::HostTicks> m_prevHostLoad;
    Cancellable m_timer;
    Cancellable m_settingsCancellable;
};

} // namespace orrinvale
