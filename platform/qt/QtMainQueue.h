// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "base/TimerQueue.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <mutex>
#include <vector>

namespace orrinvale
{

// The main queue on Qt's event loop: posted work is one custom event a batch, all timers share one precise QTimer.
// Lives on the main thread as long as the application object; work posted after its death is dropped.
class QtMainQueue final : public QObject, public MainQueue
{
public:
    QtMainQueue();
    ~QtMainQueue() override;

    void post(std::function<void()> work) override;
    [[nodiscard]] Cancellable after(std::chrono::nanoseconds delay, std::function<void()> work) override;
    [[nodiscard]] Cancellable every(std::chrono::nanoseconds interval, std::function<void()> work) override;

protected:
    bool event(QEvent* event) override;

private:
    static TimerQueue::Time now();
    void runPosted();
    void fireDue();
    void arm();

    std::mutex m_mutex;
    std::vector<std::function<void()>> m_posted;
    TimerQueue m_timers;
    QTimer m_timer;
    bool m_firing = false;
};

} // namespace orrinvale
