// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <functional>
#include <string>

namespace orrinvale
{

class MainQueue;

// Keeps a session bus that hangs from holding up the start for good: Qt asks it in many places and waits without a
// bound. Until the bus answers, this process does without it, and then begins anew. To be made before the application
// object; waits for a second at most. Main thread.
class SessionBusGuard
{
public:
    SessionBusGuard();

    // Calls `onAnswer` once a bus that hung at the start answers.
    void listen(MainQueue& queue, std::function<void()> onAnswer);
    // Starts this program again in this very process, with the bus, when it has answered in the meantime; returns when
    // it has not. Nothing may be left to be done.
    void beginAnew(char** arguments);

private:
    std::string m_hung; // the address of a bus that hung at the start; else empty
    bool m_answers = false;
    Cancellable m_looks;
};

} // namespace orrinvale
