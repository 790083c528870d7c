// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SessionBusGuard.h"

#include "base/ConsoleLine.h"
#include "base/MainQueue.h"
#include "platform/linux/BusProbe.h"

#include <chrono>

#include <cstdlib>
#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto variable = "DBUS_SESSION_BUS_ADDRESS";
constexpr auto nowhere = "unix:path=/dev/null/no-bus"; // where a connection fails at once
constexpr auto startBound = 1s;
constexpr auto lookBound = 50ms;
constexpr auto lookInterval = 2s;

} // namespace

SessionBusGuard::SessionBusGuard()
{
    const auto address = sessionBusAddress();
    if (probeBus(address, QDeadlineTimer(startBound)) != BusAnswer::hangs)
        return;
    m_hung = address;
    ::setenv(variable, nowhere, 1);
    consoleLine("SessionBus", "no answer; going on without it until there is one");
}

void SessionBusGuard::listen(MainQueue& queue, std::function<void()> onAnswer)
{
    if (m_hung.empty())
        return;
    m_looks = queue.every(lookInterval, [this, onAnswer = std::move(onAnswer)] {
        m_answers = probeBus(m_hung, QDeadlineTimer(lookBound)) == BusAnswer::answers;
        if (!m_answers)
            return;
        const auto tell = onAnswer;
        m_looks.cancel();
        tell();
    });
}

void SessionBusGuard::beginAnew(char** arguments)
{
    if (!m_answers)
        return;
    ::setenv(variable, m_hung.c_str(), 1);
    ::execv("/proc/self/exe", arguments);
}

} // namespace orrinvale
