// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/BatteryMonitor.h"

#include "platform/PowerSources.h"

#include <cmath>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

std::optional<std::int64_t> percentageOf(const PowerSource& source)
{
    const auto& [state, current, maximum] = source;
    if (!current || !maximum || *maximum < 1)
        return std::nullopt;
    return std::llround(static_cast<double>(*current) / static_cast<double>(*maximum) * 100);
}

} // namespace

void BatteryMonitor::start()
{
    refresh();
    timer = m_queue.every(15s, [this] { refresh(); });
}

void BatteryMonitor::refresh()
{
    const auto source = m_sources.first();
    isPluggedIn.set(!source || source->state == "AC Power");
    batteryPercentage.set(source ? percentageOf(*source) : std::nullopt);
}

} // namespace orrinvale
