// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "orrinvale/AppUsageStore.h"
#include "orrinvale/WakeSignal.h"

namespace orrinvale
{

class LocalCalendar;
class SessionEvents;
struct Platform;

// Credits 15 seconds to the hour and to each app that keeps the machine awake, every 15 seconds while the user can see
// the session, whatever the mode or the decision. Owned by the engine; main thread.
class AppUsageTracker
{
public:
    AppUsageTracker(const Platform& platform, const LocalCalendar& calendar);

    Published<UsageDays> days; // all records known in this run

    // Reads the stored records and begins to sample.
    void start();
    void stop();
    // The apps to credit from now on: those that the signals name.
    void updateActiveApps(const WakeSignals& signals);
    // The record of the local day of `date`; an empty one when nothing was credited on it.
    DayUsageRecord recordFor(Instant date) const;

    void screensDidSleep() { m_isScreenAsleep = true; }
    void screensDidWake() { m_isScreenAsleep = false; }
    bool isScreenAsleep() const { return m_isScreenAsleep; }
    const AppUsageStore& store() const { return m_store; }

private:
    void sample();

    MainQueue& m_queue;
    const Clock& m_clock;
    SessionEvents& m_sessionEvents;
    const LocalCalendar& m_calendar;
    AppUsageStore m_store;
    bool m_isScreenAsleep = false;
    std::map<std::string, std::string> m_currentActiveApps; // display name by app key
    Cancellable m_timer;
    Cancellable m_sessionSubscription;
};

} // namespace orrinvale
