// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace orrinvale
{

// The timers of one thread, ordered by deadline; equal deadlines fire in the order of their making. It knows no clock:
// its owner asks for the next deadline and says when time has passed. Tokens may outlive it. All of it, the dropping of
// a token too, belongs to the thread that uses it first; a build without NDEBUG ends when another one does.
class TimerQueue
{
public:
    using Time = std::chrono::nanoseconds;

    TimerQueue();
    ~TimerQueue();
    TimerQueue(const TimerQueue&) = delete;
    TimerQueue& operator=(const TimerQueue&) = delete;

    Cancellable once(Time deadline, std::function<void()> work);
    Cancellable repeat(Time firstDeadline, Time interval, std::function<void()> work);

    std::optional<Time> nextDeadline() const;
    // Fires the earliest timer that is due at `now`; false when none is. A repeating timer that fell behind skips the
    // deadlines it missed and stays on its own grid.
    bool fireNext(Time now);
    std::size_t size() const;

private:
    struct Timers;
    std::shared_ptr<Timers> m_timers;
};

} // namespace orrinvale
