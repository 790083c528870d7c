// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/IdleMonitor.h"

namespace orrinvale
{

namespace
{

// Well under the shortest time after which a desktop suspends by itself, and long enough to count as being away.
constexpr qulonglong idleMilliseconds = 30'000;

} // namespace

IdleMonitor::Service IdleMonitor::mutter()
{
    return {QStringLiteral("org.gnome.Mutter.IdleMonitor"), QStringLiteral("/org/gnome/Mutter/IdleMonitor/Core")};
}

IdleMonitor::Service IdleMonitor::muffin()
{
    return {QStringLiteral("org.cinnamon.Muffin.IdleMonitor"), QStringLiteral("/org/cinnamon/Muffin/IdleMonitor/Core")};
}

IdleMonitor::IdleMonitor(Service service, const QDBusConnection& sessionBus, std::function<void()> onChange)
    : m_service(std::move(service)), m_bus(sessionBus), m_onChange(std::move(onChange)),
      m_watcher(m_service.name, m_bus, QDBusServiceWatcher::WatchForOwnerChange),
      m_fired(m_bus, m_service.name, m_service.path, m_service.name, QStringLiteral("WatchFired"),
              [this](const QDBusMessage& message) { fired(argumentOf<uint>(message).value_or(0)); })
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                forget(); // watches end with the service that gave them
                if (m_isStarted && !owner.isEmpty())
                    addIdleWatch();
                say(Presence::unknown);
            });
}

QDBusMessage IdleMonitor::call(const char* method, const QVariantList& arguments) const
{
    auto message =
        QDBusMessage::createMethodCall(m_service.name, m_service.path, m_service.name, QString::fromLatin1(method));
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

void IdleMonitor::start()
{
    if (std::exchange(m_isStarted, true))
        return;
    addIdleWatch();
}

void IdleMonitor::stop()
{
    if (!std::exchange(m_isStarted, false))
        return;
    for (const auto watch : {m_idleWatch, m_activeWatch}) {
        if (watch != 0)
            m_bus.send(call("RemoveWatch", {watch}));
    }
    forget();
    m_presence = Presence::unknown;
}

void IdleMonitor::forget()
{
    ++m_life;
    m_idleWatch = 0;
    m_activeWatch = 0;
    m_early.clear();
}

// A watch that is given too late is given back.
void IdleMonitor::add(const QDBusMessage& request, TakeWatch take)
{
    callLater(m_bus, request, this, [this, life = m_life, take = std::move(take)](const QDBusMessage& reply) {
        const auto watch = argumentOf<uint>(reply);
        if (life == m_life && watch)
            take(*watch);
        else if (watch)
            m_bus.send(call("RemoveWatch", {*watch}));
    });
}

void IdleMonitor::addIdleWatch()
{
    add(call("AddIdleWatch", {idleMilliseconds}), [this](uint watch) {
        m_idleWatch = watch;
        say(Presence::active); // the watch of an idle machine fires at once
        if (m_early.contains(watch))
            fired(watch);
    });
}

// It fires once, and is made anew for each absence.
void IdleMonitor::addActiveWatch()
{
    add(call("AddUserActiveWatch", {}), [this](uint watch) {
        m_activeWatch = watch;
        if (m_early.contains(watch))
            fired(watch);
    });
}

void IdleMonitor::fired(uint watch)
{
    if (watch == 0 || !m_isStarted)
        return;
    if (watch == m_idleWatch) {
        if (m_presence != Presence::idle)
            addActiveWatch();
        say(Presence::idle);
    } else if (watch == m_activeWatch) {
        m_activeWatch = 0;
        m_early.clear();
        say(Presence::active);
    } else if (m_early.size() < 16) { // other programs' watches are not sent to us; this bounds a liar
        m_early.insert(watch);
    }
}

void IdleMonitor::say(Presence presence)
{
    if (std::exchange(m_presence, presence) != presence)
        m_onChange();
}

} // namespace orrinvale
