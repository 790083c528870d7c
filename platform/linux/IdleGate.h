// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/IdleMonitor.h"
#include "platform/linux/LinuxInhibitor.h"

namespace orrinvale
{

// Keeps the session manager's lock from refusing the user's own suspend. Some session managers hand the lock on to the
// login manager, and since systemd 257 that binds the user who asked for it too: there the lock is to be held only
// while nobody is at the machine. Everywhere else there is no gate. Main thread; owned by LinuxPowerAssertions.
class IdleGate final : public QObject
{
    Q_OBJECT

public:
    IdleGate(const QDBusConnection& sessionBus, const QDBusConnection& systemBus, MainQueue& queue,
             std::function<void()> onChange);

    // The session manager has granted the lock: looks whether it binds the user, unless that is known.
    void look();
    // The session manager was replaced.
    void forget();
    LinuxInhibitor::Gate gate() const;

private:
    void askForManager();
    void lookAtLocks(uint managerProcess, std::size_t look);
    void arm();

    QDBusConnection m_sessionBus;
    QDBusConnection m_systemBus;
    MainQueue& m_queue;
    const std::function<void()> m_onChange;
    int m_looks = 0; // counts them: the answers of an earlier one are of no use
    bool m_binds = false;
    IdleMonitor m_mutter, m_muffin;
    Cancellable m_nextLook;
};

} // namespace orrinvale
