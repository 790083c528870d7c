// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SystemBus.h"

#include "platform/linux/BusProbe.h"

#include <algorithm>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto answerBound = 200ms; // at the start, for a bus that must answer at once
constexpr auto firstPause = 1s;
constexpr auto longestPause = 60s;

} // namespace

SystemBus::SystemBus(MainQueue& queue, SerialQueue& background)
    : m_queue(queue), m_background(background), m_address(systemBusAddress())
{
    if (probeBus(m_address, QDeadlineTimer(answerBound)) == BusAnswer::answers)
        connectNow();
    else
        lookLater();
}

Cancellable SystemBus::observe(std::function<void(const QDBusConnection&)> use)
{
    return m_renewals.observe([this, use = std::move(use)](int) { use(m_connection); }, Deliver::changesOnly);
}

void SystemBus::connectNow()
{
    const auto name = QStringLiteral("orrinvale-system-%1").arg(++m_connections);
    m_connection = QDBusConnection::connectToBus(QString::fromStdString(m_address), name);
    m_pause = firstPause;
    m_connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                         SLOT(lost()));
    if (!m_connection.isConnected())
        lookLater();
}

void SystemBus::lost()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
    lookLater();
}

void SystemBus::lookLater()
{
    m_nextLook = m_queue.after(m_pause, [this] { look(); });
    m_pause = std::min<std::chrono::seconds>(2 * m_pause, longestPause);
}

void SystemBus::look()
{
    auto take = m_lifetime.unlessGone([this](BusAnswer answer) {
        if (answer != BusAnswer::answers)
            return lookLater();
        connectNow();
        if (m_connection.isConnected())
            m_renewals.set(m_connections);
    });
    m_background.post([&queue = m_queue, address = m_address, take] {
        queue.post([take, answer = probeBus(address, QDeadlineTimer(answerBound))] { take(answer); });
    });
}

} // namespace orrinvale
