// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <gtest/gtest.h>

#include "tests/platform/WaitFor.h"

// Adapters need Qt's event loop: every platform test runs inside an application object.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

namespace orrinvale
{

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(2);
    }
    return true;
}

void runEventsFor(std::chrono::milliseconds duration)
{
    waitFor([] { return false; }, duration);
}

} // namespace orrinvale
