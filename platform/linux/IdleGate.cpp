// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/IdleGate.h"

#include "base/MainQueue.h"

#include <algorithm>
#include <array>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const auto sessionManager = QStringLiteral("org.gnome.SessionManager");
const auto manager = QStringLiteral("org.freedesktop.login1.Manager");
// The session manager answers us first and the login manager's list follows.
constexpr std::array<std::chrono::milliseconds, 4> pauses{100ms, 400ms, 1500ms, 4000ms};

// It came with the release from which on a lock binds the user who holds it.
QDBusMessage bindingReleaseQuestion()
{
    return loginManagerCall(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                            {manager, QStringLiteral("BlockWeakInhibited")});
}

QDBusMessage processQuestion()
{
    const auto bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/"), bus, QStringLiteral("GetConnectionUnixProcessID"))
           << sessionManager;
}

} // namespace

IdleGate::IdleGate(const QDBusConnection& sessionBus, const QDBusConnection& systemBus, MainQueue& queue,
                   std::function<void()> onChange)
    : m_sessionBus(sessionBus), m_systemBus(systemBus), m_queue(queue), m_onChange(std::move(onChange)),
      m_mutter(IdleMonitor::mutter(), sessionBus, m_onChange), m_muffin(IdleMonitor::muffin(), sessionBus, m_onChange)
{
}

LinuxInhibitor::Gate IdleGate::gate() const
{
    using Presence = IdleMonitor::Presence;
    const auto either = [this](Presence presence) {
        return m_mutter.presence() == presence || m_muffin.presence() == presence;
    };
    if (!m_binds || (!either(Presence::active) && !either(Presence::idle)))
        return LinuxInhibitor::Gate::none;
    return either(Presence::active) ? LinuxInhibitor::Gate::closed : LinuxInhibitor::Gate::open;
}

void IdleGate::forget()
{
    ++m_looks;
    m_nextLook.cancel();
    m_binds = false;
    m_mutter.stop();
    m_muffin.stop();
}

void IdleGate::look()
{
    if (m_binds)
        return;
    callLater(m_systemBus, bindingReleaseQuestion(), this, [this, looks = ++m_looks](const QDBusMessage& reply) {
        if (looks == m_looks && reply.type() == QDBusMessage::ReplyMessage)
            askForManager();
    });
}

void IdleGate::askForManager()
{
    callLater(m_sessionBus, processQuestion(), this, [this, looks = m_looks](const QDBusMessage& reply) {
        if (const auto process = argumentOf<uint>(reply); process && looks == m_looks)
            lookAtLocks(*process, 0);
    });
}

void IdleGate::lookAtLocks(uint managerProcess, std::size_t look)
{
    if (look == pauses.size())
        return;
    m_nextLook = m_queue.after(pauses[look], [this, managerProcess, look, looks = m_looks] {
        callLater(m_systemBus, loginManagerCall(manager, QStringLiteral("ListInhibitors"), {}), this,
                  [this, managerProcess, look, looks](const QDBusMessage& reply) {
                      if (looks != m_looks)
                          return;
                      const auto binds = [&](const LoginManagerLock& lock) {
                          return lock.process == managerProcess && lock.mode == u"block" && lock.holds(u"sleep");
                      };
                      const auto locks = loginManagerLocks(reply);
                      if (locks && std::ranges::any_of(*locks, binds))
                          arm();
                      else
                          lookAtLocks(managerProcess, look + 1);
                  });
    });
}

void IdleGate::arm()
{
    m_binds = true;
    m_mutter.start();
    m_muffin.start();
}

} // namespace orrinvale
