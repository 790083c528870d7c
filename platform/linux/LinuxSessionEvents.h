// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "base/Published.h"
#include "base/SerialQueue.h"
#include "platform/SessionEvents.h"
#include "platform/linux/DBus.h"

#include <filesystem>
#include <memory>
#include <set>
#include <vector>

namespace orrinvale
{

// Merges what the login manager, the screen savers, the compositor and the kernel tell of the session into one flag:
// asleep while any of them says inactive, locked, covered or off. A service that goes takes its word with it. Most
// desktops tell nobody that the display is off, and the kernel has to be asked now and then. Main thread.
class LinuxSessionEvents final : public QObject, public SessionEvents
{
    Q_OBJECT

public:
    LinuxSessionEvents(const QDBusConnection& sessionBus, const QDBusConnection& systemBus, MainQueue& queue,
                       SerialQueue& background, std::filesystem::path displays = "/sys/class/drm");

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
    void lookAtDisplays();
    void say(const QString& who, bool isAsleep);

    QDBusConnection m_sessionBus;
    QDBusConnection m_systemBus;
    MainQueue& m_queue;
    SerialQueue& m_background;
    const std::filesystem::path m_displays;
    bool m_isAtTheMachine = true; // as far as the login manager tells
    std::set<QString> m_asleep;   // who says so
    Published<ScreenPresence> m_presence{ScreenPresence::awake};
    QDBusServiceWatcher m_logindWatcher, m_saverWatcher;
    std::vector<std::unique_ptr<DBusSignal>> m_signals;
    std::unique_ptr<DBusSignal> m_sessionChanges;
    Cancellable m_looks;
    Lifetime m_lifetime;
};

} // namespace orrinvale
