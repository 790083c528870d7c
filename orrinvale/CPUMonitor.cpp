// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/CPUMonitor.h"

#include "base/ConsoleLine.h"
#include "base/Fatal.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ProcessTable.h"
#include "platform/Platform.h"
#include "platform/ProcessStatus.h"
#include "platform/RunningApplications.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto sampleInterval = 5s;
constexpr int sustainedSamples = 2;
constexpr std::int64_t highScore = 4;
constexpr std::int64_t elevatedScore = 2;
constexpr std::size_t countersPerCore = 4; // user, system, idle, nice

using Ticks32 = std::int32_t;

Ticks32 difference(Ticks32 a, Ticks32 b)
{
    Ticks32 result;
    if (__builtin_sub_overflow(a, b, &result))
        fatal("processor ticks overflow 32 bits");
    return result;
}

Ticks32 sum(Ticks32 a, Ticks32 b)
{
    Ticks32 result;
    if (__builtin_add_overflow(a, b, &result))
        fatal("processor ticks overflow 32 bits");
    return result;
}

double coreLoad(const Ticks32* now, const Ticks32* before)
{
    const auto busy =
        sum(sum(difference(now[0], before[0]), difference(now[1], before[1])), difference(now[3], before[3]));
    const auto total = sum(busy, difference(now[2], before[2]));
    return total >= 1 ? static_cast<double>(busy) / total * 100 : 0;
}

double delta(std::uint32_t now, std::uint32_t before)
{
    return static_cast<double>(now) - static_cast<double>(before);
}

} // namespace

CPUMonitor::CPUMonitor(const Platform& platform, AppSettings& settings)
    : m_settings(settings), m_counters(platform.cpuCounters), m_processStatus(platform.processStatus),
      m_applications(platform.runningApplications), m_queue(platform.mainQueue), m_clock(platform.clock)
{
}

void CPUMonitor::start()
{
    readThresholds();
    m_settingsCancellable = m_settings.cpuSensitivity.observeOn(m_queue, [this](double) { readThresholds(); });
    m_timer = m_queue.every(sampleInterval, [this] { sample(); });
    measure(); // the first sample then has something to compare with
}

void CPUMonitor::stop()
{
    m_timer.cancel();
    m_settingsCancellable.cancel();
    signals.set({});
    m_busyCount = 0;
    m_prevHostLoad.reset();
    m_prevCPUInfo.clear();
}

void CPUMonitor::readThresholds()
{
    m_busyThreshold = m_settings.cpuBusyThreshold();
    m_highThreshold = m_settings.cpuHighThreshold();
    m_singleCoreThreshold = m_settings.cpuSingleCoreThreshold();
}

void CPUMonitor::sample()
{
    if (!m_settings.cpuSignalEnabled.get()) {
        m_busyCount = 0;
        clearSignals();
        return;
    }
    const auto load = measure();
    m_busyCount = isBusy(load) ? m_busyCount + 1 : 0;
    if (m_busyCount == 1)
        m_processStatus.forget(); // the cause of an earlier load
    if (m_busyCount < sustainedSamples) {
        clearSignals();
    } else {
        auto signal = loadSignal(load);
        if (signals.get().empty() || signals.get().front().detail != signal.detail)
            signals.set({std::move(signal)});
    }
    if (m_busyCount > 0)
        m_processStatus.prepare(); // for the next sample
}

bool CPUMonitor::isBusy(Load load) const
{
    return m_busyThreshold <= load.overall || m_singleCoreThreshold <= load.peak;
}

void CPUMonitor::clearSignals()
{
    if (!signals.get().empty())
        signals.set({});
}

WakeSignal CPUMonitor::loadSignal(Load load)
{
    const auto percent = std::llround(std::max(load.overall, load.peak));
    // One saturated core is high load even when the machine as a whole is nearly idle.
    const auto isHigh = m_highThreshold <= load.overall || m_singleCoreThreshold <= load.peak;
    WakeSignal signal{.source = SignalSource::cpu,
                      .detail = fmt::format("{} at {} %", isHigh ? "High CPU load" : "Elevated CPU usage", percent),
                      .score = isHigh ? highScore : elevatedScore,
                      .timestamp = m_clock.now(),
                      .appBundleID = std::nullopt,
                      .appName = std::nullopt};
    nameCause(signal);
    return signal;
}

void CPUMonitor::nameCause(WakeSignal& signal)
{
    const auto table = m_processStatus.table();
    const auto name = table ? topProcessName(*table) : std::nullopt;
    if (!name)
        return;
    signal.detail += fmt::format(" ({})", *name);
    signal.appName = name;
    for (const auto& application : m_applications.applications()) {
        if (!application.executablePath || lastPathComponent(*application.executablePath) != *name)
            continue;
        signal.appBundleID = application.bundleIdentifier;
        signal.appName = application.localizedName.value_or(*name);
        return;
    }
}

CPUMonitor::Load CPUMonitor::measure()
{
    const auto overall = readSystemLoad();
    auto ticks = m_counters.processors();
    if (!ticks)
        return {overall, overall};
    const auto core = busiestCore(*ticks);
    m_prevCPUInfo = std::move(*ticks);
    return {overall, std::max(overall, std::clamp(core, 0.0, 100.0))};
}

double CPUMonitor::busiestCore(const std::vector<std::int32_t>& ticks) const
{
    double busiest = 0;
    const auto compared = std::min(ticks.size(), m_prevCPUInfo.size()) / countersPerCore;
    for (std::size_t core = 0; core < compared; ++core) {
        const auto offset = core * countersPerCore;
        busiest = std::max(busiest, coreLoad(&ticks[offset], &m_prevCPUInfo[offset]));
    }
    return busiest;
}

double CPUMonitor::readSystemLoad()
{
    const auto [status, now] = m_counters.host();
    if (status != 0) {
        consoleLine("CPUMonitor", fmt::format("host_statistics failed ({})", status));
        return 0;
    }
    const auto before = std::exchange(m_prevHostLoad, now);
    if (!before)
        return 0;
    const auto busy = delta(now.user, before->user) + delta(now.system, before->system) + delta(now.nice, before->nice);
    const auto total = busy + delta(now.idle, before->idle);
    return total > 0 ? std::clamp(busy / total * 100, 0.0, 100.0) : 0;
}

} // namespace orrinvale
