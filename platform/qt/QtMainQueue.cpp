// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/qt/QtMainQueue.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

#include <time.h>

namespace orrinvale
{

namespace
{

const auto runPostedEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

QtMainQueue::QtMainQueue()
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] { fireDue(); });
}

QtMainQueue::~QtMainQueue() = default;

void QtMainQueue::post(std::function<void()> work)
{
    const std::lock_guard lock(m_mutex);
    m_posted.push_back(std::move(work));
    if (m_posted.size() == 1)
        QCoreApplication::postEvent(this, new QEvent(runPostedEvent));
}

bool QtMainQueue::event(QEvent* event)
{
    if (event->type() != runPostedEvent)
        return QObject::event(event);
    runPosted();
    return true;
}

void QtMainQueue::runPosted()
{
    std::vector<std::function<void()>> batch;
    {
        const std::lock_guard lock(m_mutex);
        batch.swap(m_posted);
    }
    for (const auto& work : batch)
        work();
}

TimerQueue::Time QtMainQueue::now()
{
    // Not std::chrono's steady clock, which on macOS counts the time of a suspended machine.
#ifdef CLOCK_UPTIME_RAW
    constexpr auto clock = CLOCK_UPTIME_RAW;
#else
    constexpr auto clock = CLOCK_MONOTONIC;
#endif
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

Cancellable QtMainQueue::after(std::chrono::nanoseconds delay, std::function<void()> work)
{
    auto token = m_timers.once(now() + delay, std::move(work));
    arm();
    return token;
}

Cancellable QtMainQueue::every(std::chrono::nanoseconds interval, std::function<void()> work)
{
    auto token = m_timers.repeat(now() + interval, interval, std::move(work));
    arm();
    return token;
}

void QtMainQueue::fireDue()
{
    // Only what was due at the start of the turn: a timer of zero delay must not starve the event loop.
    const auto turn = now();
    m_firing = true;
    while (m_timers.fireNext(turn)) {
    }
    m_firing = false;
    arm();
}

void QtMainQueue::arm()
{
    if (m_firing)
        return;
    const auto deadline = m_timers.nextDeadline();
    if (!deadline) {
        m_timer.stop();
        return;
    }
    // Rounded up: a timer never fires before its deadline.
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*deadline - now());
    m_timer.start(std::max(wait, std::chrono::milliseconds::zero()));
}

} // namespace orrinvale
