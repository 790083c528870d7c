// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserNotifications.h"

#include "base/AtomicFile.h"
#include "base/Text.h"

namespace orrinvale
{

namespace
{

const auto service = QStringLiteral("org.freedesktop.Notifications");
const auto path = QStringLiteral("/org/freedesktop/Notifications");
constexpr int daemonsOwnTimeout = -1;

QDBusMessage notificationCall(const char* method)
{
    return QDBusMessage::createMethodCall(service, path, service, QString::fromLatin1(method));
}

} // namespace

LinuxUserNotifications::LinuxUserNotifications(const QDBusConnection& sessionBus,
                                               std::optional<std::filesystem::path> record)
    : m_bus(sessionBus), m_watcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange),
      m_closed(m_bus, service, path, service, QStringLiteral("NotificationClosed"),
               [this](const QDBusMessage& message) {
                   const auto id = argumentOf<uint>(message).value_or(0);
                   for (auto& [identifier, notification] : m_notifications) {
                       if (notification.deliveredId == id)
                           notification.deliveredId = 0;
                   }
                   keepRecord();
               }),
      m_record(std::move(record))
{
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { forgetDaemon(); });
}

// One line: the daemon, and what it called the notifications that stand.
void LinuxUserNotifications::keepRecord()
{
    if (!m_record)
        return;
    auto text = m_daemonName.toStdString();
    for (const auto& [identifier, notification] : m_notifications) {
        if (notification.deliveredId != 0)
            text += ' ' + std::to_string(notification.deliveredId);
    }
    std::error_code ignored;
    if (text == m_daemonName.toStdString())
        std::filesystem::remove(*m_record, ignored);
    else
        writeFileAtomically(*m_record, text);
}

void LinuxUserNotifications::requestAuthorization()
{
    const auto text = m_record ? readWholeFile(*m_record) : std::nullopt;
    if (!text)
        return;
    std::error_code ignored;
    std::filesystem::remove(*m_record, ignored);
    const auto words = QString::fromStdString(*text).split(u' ');
    const auto bus = QStringLiteral("org.freedesktop.DBus");
    const auto question = QDBusMessage::createMethodCall(bus, QStringLiteral("/"), bus, QStringLiteral("GetNameOwner"))
                          << service;
    callLater(m_bus, question, this, [this, words](const QDBusMessage& reply) {
        if (argumentOf<QString>(reply) != words.front())
            return; // another daemon's numbers
        for (const auto& word : words.mid(1)) {
            if (const auto id = word.toUInt(); id != 0)
                close(id);
        }
    });
}

// The bus answers after it has taken in what came before.
void LinuxUserNotifications::flush(const QDeadlineTimer& deadline)
{
    const auto bus = QStringLiteral("org.freedesktop.DBus");
    const auto ping = QDBusMessage::createMethodCall(bus, QStringLiteral("/"), bus, QStringLiteral("GetId"));
    if (m_bus.isConnected())
        m_bus.call(ping, QDBus::Block, millisecondsLeft(deadline));
}

void LinuxUserNotifications::forgetDaemon()
{
    ++m_daemon;
    m_markup = Markup::Unknown;
    for (auto& [identifier, notification] : m_notifications)
        notification.deliveredId = 0;
    keepRecord();
}

void LinuxUserNotifications::post(const UserNotification& notification)
{
    if (!m_bus.isConnected())
        return;
    auto& entry = m_notifications[notification.identifier];
    entry.next = notification;
    entry.closeOnArrival = false;
    send(notification.identifier);
}

void LinuxUserNotifications::removeDelivered(const std::vector<std::string>& identifiers)
{
    for (const auto& identifier : identifiers) {
        auto& entry = m_notifications[identifier];
        entry.next.reset();
        entry.closeOnArrival = entry.isOnItsWay;
        if (entry.deliveredId != 0)
            close(std::exchange(entry.deliveredId, 0));
    }
    keepRecord();
}

void LinuxUserNotifications::close(quint32 id)
{
    m_bus.send(notificationCall("CloseNotification") << id);
}

void LinuxUserNotifications::askForMarkup()
{
    m_markup = Markup::Asked;
    callLater(m_bus, notificationCall("GetCapabilities"), this, [this, daemon = m_daemon](const QDBusMessage& reply) {
        const auto capabilities = argumentOf<QStringList>(reply).value_or(QStringList());
        if (daemon == m_daemon)
            m_markup = capabilities.contains(QStringLiteral("body-markup")) ? Markup::Supported : Markup::Plain;
        for (const auto& [identifier, notification] : m_notifications)
            send(identifier);
    });
}

QString LinuxUserNotifications::bodyOf(const UserNotification& notification) const
{
    const auto body = QString::fromStdString(withVisibleControls(notification.body));
    return m_markup == Markup::Supported ? body.toHtmlEscaped() : body;
}

void LinuxUserNotifications::send(const std::string& identifier)
{
    auto& entry = m_notifications[identifier];
    if (!entry.next || entry.isOnItsWay)
        return;
    if (m_markup == Markup::Unknown)
        askForMarkup();
    if (m_markup == Markup::Asked)
        return; // its answer sends
    const auto notification = *std::exchange(entry.next, std::nullopt);
    entry.isOnItsWay = true;
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("orrinvale")},
                            {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")}};
    const auto name = QStringLiteral("orrinvale");
    const auto call = notificationCall("Notify")
                      << name << entry.deliveredId << name << QString::fromStdString(notification.title)
                      << bodyOf(notification) << QStringList() << hints << daemonsOwnTimeout;
    callLater(m_bus, call, this, [this, identifier, daemon = m_daemon](const QDBusMessage& reply) {
        auto& arrived = m_notifications[identifier];
        arrived.isOnItsWay = false;
        arrived.deliveredId = daemon == m_daemon ? argumentOf<uint>(reply).value_or(0) : 0;
        if (std::exchange(arrived.closeOnArrival, false) && arrived.deliveredId != 0)
            close(std::exchange(arrived.deliveredId, 0));
        m_daemonName = reply.service();
        keepRecord();
        send(identifier);
    });
}

} // namespace orrinvale
