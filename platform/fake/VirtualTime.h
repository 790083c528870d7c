// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "base/MainQueue.h"
#include "base/SerialQueue.h"
#include "base/TimerQueue.h"

#include <deque>
#include <functional>

namespace orrinvale
{

// Time that moves only when told to: a main queue, a wall clock and serial queues over one virtual monotonic clock.
// Serial work runs on the calling thread in the order of its due times, after the main thread's pending work.
class VirtualTime final : public MainQueue, public Clock, public SerialQueues
{
public:
    // 2026-03-14T09:26:53Z
    static constexpr Instant defaultStart{std::chrono::seconds(1773480413)};

    explicit VirtualTime(Instant start = defaultStart);
    ~VirtualTime() override;

    // Runs everything that is due now, and what that posts, without moving time.
    void runPending();
    // Moves both clocks together and runs what falls due on the way, each at its own moment.
    void advance(std::chrono::nanoseconds duration);
    // The suspended machine: the wall clock moves, timers do not.
    void sleepMachineFor(std::chrono::nanoseconds duration);
    void setWallClock(Instant instant);

    // From now on delayed serial work that falls due, a save, is counted instead of run, and each queue keeps its
    // newest piece. Work that was posted runs as ever.
    void countDelayedSerialWork();
    std::size_t serialWorkCounted() const;
    // Runs the newest counted piece of every queue.
    void runNewestCountedWork();
    std::size_t timerCount() const { return m_timers.size(); }

    void post(std::function<void()> work) override;
    [[nodiscard]] Cancellable after(std::chrono::nanoseconds delay, std::function<void()> work) override;
    [[nodiscard]] Cancellable every(std::chrono::nanoseconds interval, std::function<void()> work) override;
    Instant now() const override { return m_wall; }
    std::unique_ptr<SerialQueue> make(std::string label) override;

private:
    struct Serial;
    class Queue;

    Instant m_wall;
    std::chrono::nanoseconds m_monotonic{0};
    std::deque<std::function<void()>> m_posted;
    TimerQueue m_timers;
    std::shared_ptr<Serial> m_serial;
};

} // namespace orrinvale
