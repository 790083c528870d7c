// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DBus.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

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

QVariantMap mapOf(const QDBusMessage& message, int argument)
{
    if (message.type() == QDBusMessage::ErrorMessage || message.arguments().size() <= argument)
        return {};
    const auto value = message.arguments().at(argument);
    return value.metaType() == QMetaType::fromType<QDBusArgument>() ? qdbus_cast<QVariantMap>(value) : value.toMap();
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
