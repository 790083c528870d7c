// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/Coordinator.h"

#include "base/MainQueue.h"
#include "orrinvale/FeedbackState.h"

#include <utility>

namespace orrinvale
{

Coordinator::Coordinator(std::weak_ptr<FeedbackState> state, MainQueue& queue)
    : m_state(std::move(state)), m_queue(queue)
{
}

void Coordinator::startLoadTimeout()
{
    m_timeoutTimer = m_queue.after(loadTimeout, [this] { timeoutFired(); });
}

void Coordinator::receivedFormLoaded()
{
    m_timeoutTimer.cancel();
    change([](FeedbackState& state) { state.isLoading.set(false); });
}

void Coordinator::navigationFailed()
{
    m_timeoutTimer.cancel();
    fail();
}

void Coordinator::timeoutFired()
{
    const auto state = m_state.lock();
    if (state && state->isLoading.get())
        fail();
}

void Coordinator::fail()
{
    change([](FeedbackState& state) {
        state.loadFailed.set(true);
        state.isLoading.set(false);
    });
}

void Coordinator::change(std::function<void(FeedbackState&)> action)
{
    m_queue.post([weak = m_state, action = std::move(action)] {
        if (const auto state = weak.lock())
            action(*state);
    });
}

} // namespace orrinvale
