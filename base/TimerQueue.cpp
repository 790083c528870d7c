// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/TimerQueue.h"

#include "base/OneThread.h"

#include <utility>

namespace orrinvale
{

namespace
{

constexpr auto wrongThread = "a timer was touched away from the thread of its queue";

struct Timer {
    TimerQueue::Time interval;
    std::shared_ptr<std::function<void()>> work;
};

} // namespace

struct TimerQueue::Timers {
    using Key = std::pair<Time, std::uint64_t>;

    std::map<Key, Timer> byDeadline;
    std::map<std::uint64_t, Time> deadlineById;
    std::uint64_t lastId = 0;
    OneThread thread;

    void insert(std::uint64_t id, Time deadline, Timer timer)
    {
        deadlineById[id] = deadline;
        byDeadline.emplace(Key{deadline, id}, std::move(timer));
    }

    void remove(std::uint64_t id)
    {
        thread.check(wrongThread);
        const auto found = deadlineById.find(id);
        if (found == deadlineById.end())
            return;
        // The closure may own the last reference to something that cancels timers: it dies after the book-keeping.
        auto dying = byDeadline.extract(Key{found->second, id});
        deadlineById.erase(found);
    }
};

TimerQueue::TimerQueue() : m_timers(std::make_shared<Timers>()) {}

TimerQueue::~TimerQueue() = default;

Cancellable TimerQueue::once(Time deadline, std::function<void()> work)
{
    return repeat(deadline, Time::zero(), std::move(work));
}

Cancellable TimerQueue::repeat(Time firstDeadline, Time interval, std::function<void()> work)
{
    m_timers->thread.check(wrongThread);
    const auto id = ++m_timers->lastId;
    m_timers->insert(id, firstDeadline, {interval, std::make_shared<std::function<void()>>(std::move(work))});
    return Cancellable([weak = std::weak_ptr(m_timers), id] {
        if (const auto timers = weak.lock())
            timers->remove(id);
    });
}

std::optional<TimerQueue::Time> TimerQueue::nextDeadline() const
{
    if (m_timers->byDeadline.empty())
        return std::nullopt;
    return m_timers->byDeadline.begin()->first.first;
}

bool TimerQueue::fireNext(Time now)
{
    m_timers->thread.check(wrongThread);
    if (m_timers->byDeadline.empty() || m_timers->byDeadline.begin()->first.first > now)
        return false;
    auto node = m_timers->byDeadline.extract(m_timers->byDeadline.begin());
    const auto [deadline, id] = node.key();
    const auto work = node.mapped().work;
    if (const auto interval = node.mapped().interval; interval > Time::zero()) {
        const auto missed = (now - deadline) / interval;
        m_timers->insert(id, deadline + interval * (missed + 1), std::move(node.mapped()));
    } else {
        m_timers->deadlineById.erase(id);
    }
    (*work)();
    return true;
}

std::size_t TimerQueue::size() const
{
    return m_timers->byDeadline.size();
}

} // namespace orrinvale
