// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/NetworkActivityMonitor.h"

#include "orrinvale/AppSettings.h"
#include "platform/NetworkCounters.h"
#include "platform/Platform.h"

#include <algorithm>

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr double throughputThreshold = 500'000; // bytes per second
constexpr auto idleTimeout = 8s;
constexpr auto sampleInterval = 3s;
constexpr std::int64_t networkScore = 3;
constexpr double bytesPerMegabyte = 1'000'000;

double rate(std::uint64_t previous, std::uint64_t current, Seconds elapsed)
{
    const auto delta = current > previous ? current - previous : 0;
    return static_cast<double>(delta) / elapsed.count();
}

std::vector<std::string> sortedDetails(const WakeSignals& signals)
{
    std::vector<std::string> details;
    for (const auto& signal : signals)
        details.push_back(signal.detail);
    std::sort(details.begin(), details.end());
    return details;
}

} // namespace

NetworkActivityMonitor::NetworkActivityMonitor(const Platform& platform, AppSettings& settings)
    : m_settings(settings), m_counters(platform.networkCounters), m_queue(platform.mainQueue), m_clock(platform.clock),
      m_previousTime(m_clock.now()), m_lastActivityTime(m_previousTime)
{
}

void NetworkActivityMonitor::start()
{
    if (const auto totals = m_counters.totals()) {
        m_previousBytesIn = totals->received;
        m_previousBytesOut = totals->sent;
    }
    m_previousTime = m_clock.now();
    m_timer = m_queue.every(sampleInterval, [this] { tick(); });
}

void NetworkActivityMonitor::stop()
{
    m_timer.cancel();
    signals.set({});
    m_wasActive = false;
}

void NetworkActivityMonitor::tick()
{
    if (!m_settings.networkSignalEnabled.get()) {
        // The baseline stays: the first rate after switching on again is the average over the whole pause.
        if (!signals.get().empty())
            signals.set({});
        m_wasActive = false;
        return;
    }
    const auto totals = m_counters.totals();
    const auto now = m_clock.now();
    const Seconds elapsed = now - m_previousTime;
    if (!totals || elapsed <= Seconds::zero())
        return;
    const auto receivedPerSecond = rate(m_previousBytesIn, totals->received, elapsed);
    const auto sentPerSecond = rate(m_previousBytesOut, totals->sent, elapsed);
    m_previousBytesIn = totals->received;
    m_previousBytesOut = totals->sent;
    m_previousTime = now;
    publish(activeDirections(receivedPerSecond, sentPerSecond, now));
}

WakeSignals NetworkActivityMonitor::activeDirections(double receivedPerSecond, double sentPerSecond, Instant now)
{
    WakeSignals found;
    const auto consider = [&](std::string_view verb, double bytesPerSecond) {
        if (bytesPerSecond > throughputThreshold)
            found.push_back({.source = SignalSource::network,
                             .detail = fmt::format("{} data at {:.1f} MB/s", verb, bytesPerSecond / bytesPerMegabyte),
                             .score = networkScore,
                             .timestamp = now,
                             .appBundleID = std::nullopt,
                             .appName = std::nullopt});
    };
    consider("Receiving", receivedPerSecond);
    consider("Sending", sentPerSecond);
    if (!found.empty()) {
        m_lastActivityTime = now;
        m_wasActive = true;
    } else if (now - m_lastActivityTime > idleTimeout) {
        m_wasActive = false;
    }
    return found;
}

void NetworkActivityMonitor::publish(WakeSignals found)
{
    if (sortedDetails(found) != sortedDetails(signals.get()))
        signals.set(std::move(found));
}

} // namespace orrinvale
