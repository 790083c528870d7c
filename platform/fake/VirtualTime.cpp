// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/fake/VirtualTime.h"

#include <algorithm>
#include <map>

namespace orrinvale
{

struct VirtualTime::Serial {
    TimerQueue due;
    std::chrono::nanoseconds now{0};
    bool countDelayed = false;
    std::size_t counted = 0;
    std::map<const void*, std::function<void()>> newest;

    void run(const void* queue, std::chrono::nanoseconds delay, const std::function<void()>& work)
    {
        if (!countDelayed || delay == std::chrono::nanoseconds::zero()) {
            work();
            return;
        }
        ++counted;
        newest[queue] = work;
    }
};

class VirtualTime::Queue final : public SerialQueue
{
public:
    explicit Queue(std::shared_ptr<Serial> serial) : m_serial(std::move(serial)) {}

    void post(std::function<void()> work) override
    {
        after(std::chrono::nanoseconds::zero(), std::move(work)).detach();
    }

    Cancellable after(std::chrono::nanoseconds delay, std::function<void()> work) override
    {
        return m_serial->due.once(m_serial->now + delay, [weak = std::weak_ptr(m_serial), this, delay,
                                                          alive = std::weak_ptr(m_alive), work = std::move(work)] {
            const auto serial = weak.lock();
            if (serial && !alive.expired())
                serial->run(this, delay, work);
        });
    }

private:
    std::shared_ptr<Serial> m_serial;
    std::shared_ptr<int> m_alive = std::make_shared<int>();
};

VirtualTime::VirtualTime(Instant start) : m_wall(start), m_serial(std::make_shared<Serial>()) {}

VirtualTime::~VirtualTime() = default;

void VirtualTime::runPending()
{
    for (;;) {
        if (!m_posted.empty()) {
            const auto work = std::move(m_posted.front());
            m_posted.pop_front();
            work();
        } else if (!m_timers.fireNext(m_monotonic) && !m_serial->due.fireNext(m_monotonic)) {
            return;
        }
    }
}

void VirtualTime::advance(std::chrono::nanoseconds duration)
{
    const auto end = m_monotonic + duration;
    runPending();
    for (;;) {
        const auto timer = m_timers.nextDeadline();
        const auto serial = m_serial->due.nextDeadline();
        const auto next = std::min(timer.value_or(end), serial.value_or(end));
        if (next >= end)
            break;
        m_wall += std::chrono::duration_cast<Instant::duration>(next - m_monotonic);
        m_monotonic = m_serial->now = next;
        runPending();
    }
    m_wall += std::chrono::duration_cast<Instant::duration>(end - m_monotonic);
    m_monotonic = m_serial->now = end;
    runPending();
}

void VirtualTime::sleepMachineFor(std::chrono::nanoseconds duration)
{
    m_wall += std::chrono::duration_cast<Instant::duration>(duration);
}

void VirtualTime::setWallClock(Instant instant)
{
    m_wall = instant;
}

void VirtualTime::countDelayedSerialWork()
{
    m_serial->countDelayed = true;
}

std::size_t VirtualTime::serialWorkCounted() const
{
    return m_serial->counted;
}

void VirtualTime::runNewestCountedWork()
{
    for (const auto& [queue, work] : m_serial->newest)
        work();
    m_serial->newest.clear();
}

void VirtualTime::post(std::function<void()> work)
{
    m_posted.push_back(std::move(work));
}

Cancellable VirtualTime::after(std::chrono::nanoseconds delay, std::function<void()> work)
{
    return m_timers.once(m_monotonic + delay, std::move(work));
}

Cancellable VirtualTime::every(std::chrono::nanoseconds interval, std::function<void()> work)
{
    return m_timers.repeat(m_monotonic + interval, interval, std::move(work));
}

std::unique_ptr<SerialQueue> VirtualTime::make(std::string)
{
    return std::make_unique<Queue>(m_serial);
}

} // namespace orrinvale
