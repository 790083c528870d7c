// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WakeEngine.h"

#include "base/CombineLatest.h"
#include "base/Fatal.h"
#include "orrinvale/AppSettings.h"
#include "platform/Platform.h"

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono_literals;

WakeEngine::WakeEngine(const Platform& platform, AppSettings& settings, const LocalCalendar& calendar)
    : m_queue(platform.mainQueue), m_clock(platform.clock), m_downloadMonitor(platform, settings),
      m_networkMonitor(platform, settings), m_processDetector(platform), m_cpuMonitor(platform, settings),
      m_sleepGuard(platform.powerAssertions), m_settings(settings),
      m_logStore(platform.applicationSupport, platform.serialQueues), m_appUsageTracker(platform, calendar),
      m_batteryMonitor(platform.powerSources, platform.mainQueue)
{
}

void WakeEngine::start()
{
    mode.set(m_settings.wakeMode.get());
    activityLog.set(m_logStore.load());
    subscribeToDetectors();
    subscribeToSettingsAndBattery();
    m_downloadMonitor.start();
    m_networkMonitor.start();
    m_processDetector.start();
    m_cpuMonitor.start();
    m_appUsageTracker.start();
    m_batteryMonitor.start();
}

void WakeEngine::subscribeToDetectors()
{
    const auto combined = [this](const WakeSignals& downloads, const WakeSignals& network, const WakeSignals& processes,
                                 const WakeSignals& cpu) {
        WakeSignals all;
        for (const auto* list : {&downloads, &network, &processes, &cpu})
            all.insert(all.end(), list->begin(), list->end());
        activeSignals.set(std::move(all));
        m_appUsageTracker.updateActiveApps(activeSignals.get());
        evaluate();
    };
    m_cancellables += combineLatest(m_queue, combined, m_downloadMonitor.signals, m_networkMonitor.signals,
                                    m_processDetector.signals, m_cpuMonitor.signals);
}

void WakeEngine::subscribeToSettingsAndBattery()
{
    const auto evaluateAgain = [this](const auto&...) { evaluate(); };
    m_cancellables += m_settings.customProcesses.observeOn(
        m_queue, [this](const auto& list) { m_processDetector.updateCustomProcesses(list); });
    m_cancellables +=
        combineLatest(m_queue, evaluateAgain, m_batteryMonitor.isPluggedIn, m_batteryMonitor.batteryPercentage);
    m_cancellables += m_settings.pauseOnLowBattery.observeOn(m_queue, evaluateAgain);
    m_cancellables += m_settings.lowBatteryThreshold.observeOn(m_queue, evaluateAgain);
    m_cancellables += m_settings.onlyWhenPluggedIn.observeOn(m_queue, evaluateAgain);
}

void WakeEngine::stop()
{
    m_downloadMonitor.stop();
    m_networkMonitor.stop();
    m_processDetector.stop();
    m_cpuMonitor.stop();
    m_appUsageTracker.stop();
    m_batteryMonitor.timer.cancel();
    m_sleepGuard.release();
    cancelCooldown();
    m_cancellables.clear();
}

void WakeEngine::evaluate()
{
    if (const auto pause = batteryPauseReason()) {
        cancelCooldown();
        transition(WakeState::idle(), *pause);
    } else if (mode.get() == WakeMode::manual) {
        cancelCooldown();
        transition(WakeState::awake("Manual mode — always awake"), "Manual mode");
    } else if (mode.get() == WakeMode::off) {
        cancelCooldown();
        transition(WakeState::idle(), "orrinvale is off");
    } else if (isWorthStayingAwake()) {
        cancelCooldown();
        const auto detail = strongestDetail();
        transition(WakeState::awake(detail), detail);
    } else if (state.get().isAwake()) {
        startCooldown();
    }
}

std::optional<std::string> WakeEngine::batteryPauseReason() const
{
    if (mode.get() == WakeMode::off) // which says so itself
        return std::nullopt;
    const auto isPluggedIn = m_batteryMonitor.isPluggedIn.get();
    if (m_settings.onlyWhenPluggedIn.get() && !isPluggedIn)
        return "Paused — orrinvale is set to only run while plugged in";
    const auto percentage = m_batteryMonitor.batteryPercentage.get();
    const auto threshold = m_settings.lowBatteryThreshold.get();
    if (!m_settings.pauseOnLowBattery.get() || isPluggedIn || !percentage || *percentage > threshold)
        return std::nullopt;
    return fmt::format("Paused — battery at {}% (below {}% safety threshold)", *percentage, threshold);
}

bool WakeEngine::isWorthStayingAwake() const
{
    std::int64_t total = 0;
    for (const auto& signal : activeSignals.get()) {
        if (__builtin_add_overflow(total, signal.score, &total))
            fatal("the sum of scores overflows 64 bits");
    }
    return !activeSignals.get().empty() && total >= wakeThreshold;
}

std::string WakeEngine::strongestDetail() const
{
    const WakeSignal* strongest = nullptr;
    for (const auto& signal : activeSignals.get()) {
        if (!strongest || signal.score > strongest->score)
            strongest = &signal;
    }
    return strongest ? strongest->detail : "Active tasks detected";
}

void WakeEngine::transition(WakeState to, const std::string& message)
{
    if (to == state.get())
        return;
    state.set(std::move(to));
    const auto& current = state.get();
    if (current.isIdle())
        m_sleepGuard.release();
    else
        m_sleepGuard.acquire(message);
    auto log = activityLog.get();
    log.insert(log.begin(), ActivityEntry{UUID::random(), m_clock.now(), message, current.persistedCategory()});
    activityLog.set(std::move(log));
    if (activityLog.get().size() > longestLog) {
        auto trimmed = activityLog.get();
        trimmed.resize(longestLog, trimmed.front());
        activityLog.set(std::move(trimmed));
    }
    m_logStore.save(activityLog.get());
}

void WakeEngine::startCooldown()
{
    if (m_cooldownTimer)
        return;
    m_cooldownSeconds = cooldownPeriod;
    transition(WakeState::cooldown(cooldownPeriod), "Cooldown started");
    m_cooldownTimer = m_queue.every(1s, [this] { cooldownTick(); });
}

void WakeEngine::cooldownTick()
{
    --m_cooldownSeconds;
    if (m_cooldownSeconds <= 0) {
        cancelCooldown();
        transition(WakeState::idle(), "Cooldown complete — system may sleep");
    } else {
        state.set(WakeState::cooldown(m_cooldownSeconds)); // neither logged nor a change to the assertion
    }
}

void WakeEngine::cancelCooldown()
{
    m_cooldownTimer.cancel();
    m_cooldownSeconds = 0;
}

} // namespace orrinvale
