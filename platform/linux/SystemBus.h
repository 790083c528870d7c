// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "base/MainQueue.h"
#include "base/Published.h"
#include "base/SerialQueue.h"

#include <QDBusConnection>
#include <QObject>

#include <chrono>

namespace orrinvale
{

// Our connection to the system bus, made anew after the bus was stopped and started again. A bus that is not there, or
// does not answer, is looked for in the background; nothing on the main thread waits for it. Main thread.
class SystemBus final : public QObject
{
    Q_OBJECT

public:
    SystemBus(MainQueue& queue, SerialQueue& background);

    // The present one; disconnected while there is none.
    const QDBusConnection& connection() const { return m_connection; }
    // Calls `use` with each later connection.
    [[nodiscard]] Cancellable observe(std::function<void(const QDBusConnection&)> use);

private:
    Q_SLOT void lost();
    void lookLater();
    void look();
    void connectNow();

    MainQueue& m_queue;
    SerialQueue& m_background;
    const std::string m_address;
    QDBusConnection m_connection{QString()};
    int m_connections = 0; // each needs a name of its own
    std::chrono::seconds m_pause{1};
    Published<int> m_renewals;
    Cancellable m_nextLook;
    Lifetime m_lifetime;
};

} // namespace orrinvale
