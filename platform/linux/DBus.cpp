// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DBus.h"

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>

namespace orrinvale
{

void callLater(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage&)> handler)
{
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [handler = std::move(handler)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         handler(finished->reply());
                     });
}

int millisecondsLeft(const QDeadlineTimer& deadline)
{
    return std::max(static_cast<int>(deadline.remainingTime()), 1);
}

QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

QDBusMessage getAllCall(const QString& service, const QString& path, const QString& interface)
{
    auto call = QDBusMessage::createMethodCall(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("GetAll"));
    call << interface;
    return call;
}

std::optional<QDBusArgument> unreadOf(const QVariant& value, const char* signature)
{
    const auto plain = unwrapped(value);
    if (plain.metaType() != QMetaType::fromType<QDBusArgument>())
        return std::nullopt;
    const auto argument = plain.value<QDBusArgument>();
    return argument.currentSignature() == QLatin1String(signature) ? std::optional(argument) : std::nullopt;
}

template <>
std::optional<QVariantMap> valueOf<QVariantMap>(const QVariant& value)
{
    const auto plain = unwrapped(value);
    if (plain.metaType() == QMetaType::fromType<QVariantMap>())
        return plain.toMap();
    const auto argument = unreadOf(plain, "a{sv}");
    return argument ? std::optional(qdbus_cast<QVariantMap>(*argument)) : std::nullopt;
}

QVariantMap mapOf(const QDBusMessage& message, int argument)
{
    return argumentOf<QVariantMap>(message, argument).value_or(QVariantMap());
}

DBusSignal::DBusSignal(QDBusConnection bus, QString service, QString path, QString interface, QString name,
                       Handler handler)
    : m_bus(std::move(bus)), m_service(std::move(service)), m_path(std::move(path)), m_interface(std::move(interface)),
      m_name(std::move(name)), m_handler(std::move(handler))
{
    // A slot with a QDBusVariant argument would never be called: the whole message is.
    m_bus.connect(m_service, m_path, m_interface, m_name, this, SLOT(received(QDBusMessage)));
}

DBusSignal::~DBusSignal()
{
    m_bus.disconnect(m_service, m_path, m_interface, m_name, this, SLOT(received(QDBusMessage)));
}

} // namespace orrinvale
