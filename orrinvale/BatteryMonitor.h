// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"

#include <cstdint>
#include <optional>

namespace orrinvale
{

class PowerSources;

// Whether the machine runs on external power and how full its battery is, looked at every 15 seconds. Without battery
// information it counts as plugged in, so that the battery rules never stand in the way. Main thread.
class BatteryMonitor
{
public:
    BatteryMonitor(PowerSources& sources, MainQueue& queue) : m_sources(sources), m_queue(queue) {}

    Published<bool> isPluggedIn{true};
    Published<std::optional<std::int64_t>> batteryPercentage; // nullopt: no battery, or not told

    void start();
    // Assigns both values, `isPluggedIn` first, changed or not.
    void refresh();

    Cancellable timer; // dropping it ends the polling

private:
    PowerSources& m_sources;
    MainQueue& m_queue;
};

} // namespace orrinvale
