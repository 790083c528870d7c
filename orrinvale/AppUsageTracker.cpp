// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppUsageTracker.h"

#include "platform/Platform.h"
#include "platform/SessionEvents.h"
#include "text/LocalCalendar.h"

namespace orrinvale
{

constexpr std::chrono::seconds sampleInterval{15};

AppUsageTracker::AppUsageTracker(const Platform& platform, const LocalCalendar& calendar)
    : m_queue(platform.mainQueue), m_clock(platform.clock), m_sessionEvents(platform.sessionEvents),
      m_calendar(calendar), m_store(platform.applicationSupport, platform.serialQueues)
{
}

void AppUsageTracker::start()
{
    days.set(m_store.load());
    m_timer = m_queue.every(sampleInterval, [this] { sample(); });
    m_sessionSubscription = m_sessionEvents.observe([this](ScreenPresence presence) {
        if (presence == ScreenPresence::asleep)
            screensDidSleep();
        else
            screensDidWake();
    });
}

void AppUsageTracker::stop()
{
    m_timer.cancel();
    m_sessionSubscription.cancel();
}

void AppUsageTracker::updateActiveApps(const WakeSignals& signals)
{
    m_currentActiveApps.clear();
    for (const auto& signal : signals) {
        if (signal.appName)
            m_currentActiveApps[signal.appBundleID.value_or("tool." + *signal.appName)] = *signal.appName;
    }
}

DayUsageRecord AppUsageTracker::recordFor(Instant date) const
{
    const auto key = m_calendar.dateKey(date);
    const auto found = days.get().find(key);
    return found == days.get().end() ? DayUsageRecord{key, {}, {}, {}} : found->second;
}

void AppUsageTracker::sample()
{
    if (m_isScreenAsleep || m_currentActiveApps.empty())
        return;
    const auto now = m_clock.now();
    auto record = recordFor(now);
    // The constant, whatever time really passed: a tick after a suspend credits one interval.
    const double seconds = sampleInterval.count();
    record.hourlySeconds[static_cast<std::size_t>(m_calendar.hour(now))] += seconds;
    for (const auto& [key, name] : m_currentActiveApps) {
        record.appSeconds[key] += seconds;
        record.appNames[key] = name;
    }
    auto updated = days.get();
    updated[m_calendar.dateKey(now)] = std::move(record);
    days.set(std::move(updated));
    m_store.save(days.get());
}

} // namespace orrinvale
