// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ReasonContent.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <unordered_set>

namespace orrinvale
{

namespace
{

struct Kind {
    const char* category;
    const char* symbol;
};

Kind kindOf(SignalSource source)
{
    switch (source) {
    case SignalSource::download:
        return {"Download", "arrow.down.circle.fill"};
    case SignalSource::network:
        return {"Network", "antenna.radiowaves.left.and.right"};
    case SignalSource::process:
        return {"Process", "gearshape.fill"};
    case SignalSource::cpu:
        return {"CPU", "cpu"};
    case SignalSource::manual:
        break;
    }
    return {"Manual", "lock.fill"};
}

} // namespace

std::string relativeTime(Instant timestamp, Instant now)
{
    const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(now - timestamp).count();
    const auto seconds = std::max<std::int64_t>(elapsed, 0);
    if (seconds < 60)
        return fmt::format("{}s ago", seconds);
    if (seconds < 3600)
        return fmt::format("{}m ago", seconds / 60);
    return fmt::format("{}h ago", seconds / 3600);
}

ReasonContent ReasonContent::of(const WakeSignal& signal, Instant now)
{
    const auto [category, symbol] = kindOf(signal.source);
    return {signal.detail, category, symbol, "Detected " + relativeTime(signal.timestamp, now), Badge::accent};
}

ReasonContent ReasonContent::ofNoSignal(const std::optional<std::string>& fallbackReason, bool isAwake)
{
    if (isAwake && fallbackReason)
        return {*fallbackReason, "System", "bolt.fill", "Currently active", Badge::accent};
    return {"No active reason", "Idle", "moon.zzz.fill", "Your Mac can sleep normally", Badge::idle};
}

WakeSignals pagesOf(const WakeSignals& signals)
{
    WakeSignals pages;
    std::unordered_set<std::string> seen;
    std::copy_if(signals.begin(), signals.end(), std::back_inserter(pages),
                 [&](const WakeSignal& signal) { return seen.insert(signal.detail).second; });
    std::stable_sort(pages.begin(), pages.end(), [](const auto& a, const auto& b) { return a.score > b.score; });
    return pages;
}

} // namespace orrinvale
