// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DBus.h"

#include <set>

namespace orrinvale
{

// Whether anybody is at the machine, as one compositor's idle monitor tells while it is watched. It may come, go and
// come back. Never starts a service and never waits. Main thread.
class IdleMonitor final : public QObject
{
    Q_OBJECT

public:
    enum class Presence { unknown, active, idle };
    struct Service {
        QString name;
        QString path;
    };
    static Service mutter();
    static Service muffin();

    IdleMonitor(Service service, const QDBusConnection& sessionBus, std::function<void()> onChange);
    ~IdleMonitor() override { stop(); }

    void start();
    void stop();
    Presence presence() const { return m_presence; }

private:
    using TakeWatch = std::function<void(uint watch)>;

    QDBusMessage call(const char* method, const QVariantList& arguments) const;
    void add(const QDBusMessage& request, TakeWatch take);
    void addIdleWatch();
    void addActiveWatch();
    void fired(uint watch);
    void say(Presence presence);
    void forget();

    const Service m_service;
    QDBusConnection m_bus;
    const std::function<void()> m_onChange;
    QDBusServiceWatcher m_watcher;
    DBusSignal m_fired;
    Presence m_presence = Presence::unknown;
    bool m_isStarted = false;
    int m_life = 0; // counts the starts and owners: what an earlier one answers is none of the present one's
    uint m_idleWatch = 0;
    uint m_activeWatch = 0;
    std::set<uint> m_early; // fired before we were told whose they are
};

} // namespace orrinvale
