// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "base/StandardDescriptors.h"
#include "platform/qt/TerminationSignals.h"

#include <functional>

namespace orrinvale
{

class MainQueue;

// This process from the first line of main to its last: its signals, and its place as the only one of the session. To
// be made before the application object and before any thread. Main thread.
class MacProcess
{
public:
    explicit MacProcess(char** arguments);

    // From now on `end` answers when the process is to end; needs the application object.
    void onTermination(std::function<void()> end) { m_termination.listen(std::move(end)); }
    // False: another one runs already, and was asked to come forward.
    bool isTheOnlyOne();
    // `comeForward` is called each time the application is opened again.
    void onAnotherStart(std::function<void()> comeForward);
    // Nothing that could be missing at the start comes later.
    void onBetterStart(MainQueue&, const std::function<void()>&) {}
    // Nothing waits for background work; files are replaced atomically.
    [[noreturn]] void end(int status);

private:
    StandardDescriptors m_descriptors; // before anything is opened
    TerminationSignals m_termination;
    Cancellable m_reopening;
};

} // namespace orrinvale
