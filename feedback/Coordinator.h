// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <chrono>
#include <functional>
#include <memory>

namespace orrinvale
{

class MainQueue;
struct FeedbackState;

// Turns what the web view reports into the state of the form, and a load that stalls into a failed one. Owned by the
// web view; the state may go first. Main thread; every change arrives in a turn of its own.
class Coordinator
{
public:
    static constexpr std::chrono::seconds loadTimeout{12};

    Coordinator(std::weak_ptr<FeedbackState> state, MainQueue& queue);

    // Counts from now; an earlier count is over.
    void startLoadTimeout();
    // The wrapper page's message; its body does not matter.
    void receivedFormLoaded();
    // Of the wrapper page or of the form in it.
    void navigationFailed();

private:
    void timeoutFired();
    void change(std::function<void(FeedbackState&)> action);
    void fail();

    std::weak_ptr<FeedbackState> m_state;
    MainQueue& m_queue;
    Cancellable m_timeoutTimer;
};

} // namespace orrinvale
