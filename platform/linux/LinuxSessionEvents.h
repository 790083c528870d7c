// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "platform/SessionEvents.h"
#include "platform/linux/DBus.h"

#include <memory>
#include <set>
#include <vector>

namespace orrinvale
{

// Merges what the login manager, the screen savers and the compositor tell of the session into one flag: asleep while
// any of them says inactive, locked, covered or off. A service that goes takes its word with it. Main thread.
class LinuxSessionEvents final : public QObject, public SessionEvents
{
    Q_OBJECT

public:
    LinuxSessionEvents(const QDBusConnection& sessionBus, const QDBusConnection& systemBus, MainQueue& queue);

    // The system bus was stopped and started again.
    void useSystemBus(const QDBusConnection& systemBus);

    [[nodiscard]] Cancellable observe(std::function<void(ScreenPresence)> onChange) override;

private:
    void forgetSession();
    void findSession();
    void followSession(const QString& path);
    void takeSession(const QVariantMap& properties);
    void watchScreenSavers();
    void watchCompositor();
    void say(const QString& who, bool isAsleep);

    QDBusConnection m_sessionBus;
    QDBusConnection m_systemBus;
    MainQueue& m_queue;
    std::set<QString> m_asleep; // who says so
    Published<ScreenPresence> m_presence{ScreenPresence::awake};
    QDBusServiceWatcher m_logindWatcher, m_saverWatcher;
    std::vector<std::unique_ptr<DBusSignal>> m_signals;
    std::unique_ptr<DBusSignal> m_sessionChanges;
};

} // namespace orrinvale
