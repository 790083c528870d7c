// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tests/platform/WaitFor.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace orrinvale
{

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        // Which processEvents leaves to a loop that runs.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QThread::msleep(2);
    }
    return true;
}

void runEventsFor(std::chrono::milliseconds duration)
{
    waitFor([] { return false; }, duration);
}

} // namespace orrinvale
