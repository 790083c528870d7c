// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "base/Published.h"
#include "orrinvale/WakeSignal.h"

#include <cstdint>

namespace orrinvale
{

class AppSettings;
class NetworkCounters;
struct Platform;

// Turns network throughput above 500,000 bytes a second into signals, one a direction, looked at every 3 seconds.
// Owned by the engine; main thread.
class NetworkActivityMonitor
{
public:
    NetworkActivityMonitor(const Platform& platform, AppSettings& settings);

    Published<WakeSignals> signals; // replaced when a detail changed

    void start();
    void stop();
    bool wasActive() const { return m_wasActive; }

private:
    void tick();
    WakeSignals activeDirections(double receivedPerSecond, double sentPerSecond, Instant now);
    void publish(WakeSignals found);

    AppSettings& m_settings;
    NetworkCounters& m_counters;
    MainQueue& m_queue;
    const Clock& m_clock;
    std::uint64_t m_previousBytesIn = 0;
    std::uint64_t m_previousBytesOut = 0;
    Instant m_previousTime;
    Instant m_lastActivityTime;
    bool m_wasActive = false;
    Cancellable m_timer;
};

} // namespace orrinvale
