// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/StandardDescriptors.h"
#include "platform/linux/SessionBusGuard.h"
#include "platform/linux/SingleInstance.h"
#include "platform/qt/TerminationSignals.h"

#include <functional>

namespace orrinvale
{

// This process from the first line of main to its last: its standard descriptors, its locale, its signals, and its
// place as the only one of the session. To be made before the application object and before any thread. Main thread.
class LinuxProcess
{
public:
    // `arguments` are those of main.
    explicit LinuxProcess(char** arguments);

    // From now on `end` answers when the process is to end; needs the application object.
    void onTermination(std::function<void()> end) { m_termination.listen(std::move(end)); }
    // False: another one runs already, and was asked to come forward.
    bool isTheOnlyOne() { return m_instance.claim() == SingleInstance::Role::first; }
    // `comeForward` is called each time another one is started.
    void onAnotherStart(std::function<void()> comeForward) { m_instance.listen(std::move(comeForward)); }
    // Calls `end` when the process would now begin better than it did, with a bus that hung then; end() begins it anew.
    void onBetterStart(MainQueue& queue, std::function<void()> end) { m_sessionBus.listen(queue, std::move(end)); }
    // Nothing waits for background work, and what it uses is not taken away from under it: the process goes as a whole.
    // Files are replaced atomically, and the services free what is bound to our connections.
    [[noreturn]] void end(int status);

private:
    char** m_arguments;
    StandardDescriptors m_descriptors; // before anything is opened
    TerminationSignals m_termination;
    SessionBusGuard m_sessionBus;
    SingleInstance m_instance;
};

} // namespace orrinvale
