// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSessionEvents.h"

#include "base/MainQueue.h"
#include "platform/linux/DisplayPower.h"

#include <QDBusObjectPath>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const auto logind = QStringLiteral("org.freedesktop.login1");
const auto sessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const auto propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const auto propertiesChanged = QStringLiteral("PropertiesChanged");
constexpr auto lookInterval = 10s;
const auto compositor = QStringLiteral("org.gnome.Mutter.DisplayConfig");
const QStringList screenSavers{QStringLiteral("org.gnome.ScreenSaver"), QStringLiteral("org.freedesktop.ScreenSaver"),
                               QStringLiteral("org.cinnamon.ScreenSaver"), QStringLiteral("org.mate.ScreenSaver"),
                               QStringLiteral("org.xfce.ScreenSaver")};

} // namespace

LinuxSessionEvents::LinuxSessionEvents(const QDBusConnection& sessionBus, const QDBusConnection& systemBus,
                                       MainQueue& queue, SerialQueue& background, std::filesystem::path displays)
    : m_sessionBus(sessionBus), m_systemBus(systemBus), m_queue(queue), m_background(background),
      m_displays(std::move(displays)), m_logindWatcher(logind, m_systemBus, QDBusServiceWatcher::WatchForOwnerChange)
{
    QObject::connect(&m_logindWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
                     [this](const QString&, const QString&, const QString& owner) {
                         forgetSession();
                         if (!owner.isEmpty())
                             findSession();
                     });
    findSession();
    watchScreenSavers();
    watchCompositor();
    m_looks = m_queue.every(lookInterval, [this] { lookAtDisplays(); });
}

void LinuxSessionEvents::lookAtDisplays()
{
    auto take =
        m_lifetime.unlessGone([this](bool areOff) { say(QStringLiteral("displays"), areOff && m_isAtTheMachine); });
    m_background.post([&queue = m_queue, folder = m_displays, take] {
        queue.post([take, areOff = areDisplaysOff(folder)] { take(areOff); });
    });
}

void LinuxSessionEvents::forgetSession()
{
    takeSession({{QStringLiteral("Active"), true}, {QStringLiteral("LockedHint"), false}});
}

void LinuxSessionEvents::useSystemBus(const QDBusConnection& systemBus)
{
    m_systemBus = systemBus;
    m_logindWatcher.setConnection(m_systemBus);
    m_sessionChanges.reset();
    forgetSession();
    findSession();
}

void LinuxSessionEvents::findSession()
{
    auto call =
        QDBusMessage::createMethodCall(logind, QStringLiteral("/org/freedesktop/login1"),
                                       QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("GetSession"));
    call.setAutoStartService(false);
    // "auto" is the caller's session, or the user's graphical one for a caller outside any.
    callLater(m_systemBus, call << QStringLiteral("auto"), this, [this](const QDBusMessage& reply) {
        if (const auto path = argumentOf<QDBusObjectPath>(reply))
            followSession(path->path());
    });
}

void LinuxSessionEvents::followSession(const QString& path)
{
    m_sessionChanges =
        std::make_unique<DBusSignal>(m_systemBus, logind, path, propertiesInterface, propertiesChanged,
                                     [this](const QDBusMessage& message) { takeSession(mapOf(message, 1)); });
    callLater(m_systemBus, getAllCall(logind, path, sessionInterface), this,
              [this](const QDBusMessage& reply) { takeSession(mapOf(reply)); });
}

void LinuxSessionEvents::takeSession(const QVariantMap& properties)
{
    if (const auto isActive = memberOf<bool>(properties, QStringLiteral("Active")))
        say(QStringLiteral("inactive"), !*isActive);
    if (const auto isLocked = memberOf<bool>(properties, QStringLiteral("LockedHint")))
        say(QStringLiteral("locked"), *isLocked);
    // A session without a seat is looked at over the network, on other displays than the machine's.
    if (const auto seat = unreadOf(properties.value(QStringLiteral("Seat")), "(so)")) {
        QString name;
        QDBusObjectPath path;
        seat->beginStructure();
        *seat >> name >> path;
        seat->endStructure();
        m_isAtTheMachine = !name.isEmpty();
    }
}

void LinuxSessionEvents::watchScreenSavers()
{
    m_saverWatcher.setConnection(m_sessionBus);
    m_saverWatcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    for (const auto& name : screenSavers) {
        m_saverWatcher.addWatchedService(name);
        m_signals.push_back(std::make_unique<DBusSignal>(m_sessionBus, QString(), QString(), name,
                                                         QStringLiteral("ActiveChanged"),
                                                         [this, name](const QDBusMessage& message) {
                                                             if (const auto isActive = argumentOf<bool>(message))
                                                                 say(name, *isActive);
                                                         }));
    }
    m_saverWatcher.addWatchedService(compositor);
    QObject::connect(&m_saverWatcher, &QDBusServiceWatcher::serviceUnregistered, this,
                     [this](const QString& name) { say(name, false); });
}

void LinuxSessionEvents::watchCompositor()
{
    const auto power = QStringLiteral("PowerSaveMode"); // 0: the display is on, -1: not known
    m_signals.push_back(std::make_unique<DBusSignal>(
        m_sessionBus, compositor, QStringLiteral("/org/gnome/Mutter/DisplayConfig"), propertiesInterface,
        propertiesChanged, [this, power](const QDBusMessage& message) {
            if (const auto mode = memberOf<int>(mapOf(message, 1), power))
                say(compositor, *mode > 0);
        }));
}

void LinuxSessionEvents::say(const QString& who, bool isAsleep)
{
    if (isAsleep)
        m_asleep.insert(who);
    else
        m_asleep.erase(who);
    const auto presence = m_asleep.empty() ? ScreenPresence::awake : ScreenPresence::asleep;
    if (presence != m_presence.get())
        m_presence.set(presence);
}

Cancellable LinuxSessionEvents::observe(std::function<void(ScreenPresence)> onChange)
{
    if (m_presence.get() == ScreenPresence::awake)
        return m_presence.observe(std::move(onChange), Deliver::changesOnly);
    return m_presence.observeOn(m_queue, std::move(onChange));
}

} // namespace orrinvale
