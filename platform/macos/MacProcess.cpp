// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacProcess.h"

#include "platform/macos/Agent.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

#include <unistd.h>

namespace orrinvale
{

MacProcess::MacProcess(char**)
{
    // An agent that starts at login must not take the keyboard from whoever has it.
    qputenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM", "1");
}

bool MacProcess::isTheOnlyOne()
{
    return !handOverToOtherInstance();
}

void MacProcess::onAnotherStart(std::function<void()> comeForward)
{
    QTimer::singleShot(0, QCoreApplication::instance(), [this, comeForward = std::move(comeForward)] {
        m_reopening = observeReopening([comeForward] {
            activateApplication();
            comeForward();
        });
    });
}

void MacProcess::end(int status)
{
    std::fflush(nullptr);
    ::_exit(status);
}

} // namespace orrinvale
