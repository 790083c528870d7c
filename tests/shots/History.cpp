// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tests/shots/History.h"

#include "text/LocalCalendar.h"

#include <random>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto days = 119;

int periodsOf(std::mt19937& random, int day)
{
    std::uniform_real_distribution<double> chance;
    const auto isWeekend = day % 7 == 1 || day % 7 == 2;
    const auto busy = chance(random);
    if (day % 41 < 9)
        return 0; // holidays
    return static_cast<int>(busy * busy * (isWeekend ? 5 : 13));
}

} // namespace

Instant madeUpNow()
{
    return Instant(std::chrono::seconds(1'762'956'000)); // a Wednesday in November 2025, 14:00 UTC
}

std::vector<ActivityEntry> madeUpLog(const LocalCalendar&)
{
    std::mt19937 random(7);
    std::vector<ActivityEntry> entries;
    for (int day = 0; day < days; ++day) {
        const auto periods = day == 0 ? 7 : periodsOf(random, day);
        for (int period = 0; period < periods; ++period) {
            const auto date = madeUpNow() - day * 24h - period * 31min;
            entries.push_back({UUID::random(), date, "debian-12.iso is downloading", PersistedStateCategory::awake});
            entries.push_back({UUID::random(), date - 9min, "Allowed to sleep", PersistedStateCategory::idle});
        }
    }
    return entries;
}

UsageDays madeUpUsage(const LocalCalendar& calendar)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> share;
    UsageDays usage;
    for (int day = 0; day < days; ++day) {
        DayUsageRecord record;
        record.dateKey = calendar.dateKey(madeUpNow() - day * 24h);
        for (std::size_t hour = 7; hour < 22; ++hour)
            record.hourlySeconds[hour] = share(random) < 0.15 ? 0 : 3600 * share(random);
        const std::vector<std::pair<std::string, double>> apps{
            {"Contemporary Orchestral Sample Library Manager, Professional Edition 2025", 27 * 3600 + 180},
            {"HandBrake", 7500},
            {"zoom.us", 5460},
            {"Terminal", 3480},
            {"Transmission", 1440},
            {"ffmpeg", 420}};
        for (const auto& [name, seconds] : apps) {
            record.appSeconds[name] = day == 0 ? seconds : seconds * share(random);
            record.appNames[name] = name;
        }
        usage[record.dateKey] = record;
    }
    return usage;
}

WakeSignals madeUpSignals(std::size_t count, Instant now)
{
    WakeSignals signals{
        {UUID::random(),
         SignalSource::download,
         "debian-12.9.0-amd64-DVD-1.iso is downloading",
         5,
         now - 12min,
         {},
         {}},
        {UUID::random(), SignalSource::cpu, "CPU load 87 %", 4, now - 3min, {}, {}},
        {UUID::random(), SignalSource::process, "Zoom call active", 3, now - 40s, "us.zoom.Zoom", "zoom.us"}};
    signals.resize(std::min(count, signals.size()));
    return signals;
}

} // namespace orrinvale
