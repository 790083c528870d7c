// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace orrinvale
{

// Sends `call` and hands the reply, an error reply too, to `handler` in a later turn; never once `context` is gone.
void callLater(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage&)> handler);

// What a call that must answer by then may take; 1 at least, since none would mean the library's own half a minute.
int millisecondsLeft(const QDeadlineTimer& deadline);

// The value inside any number of nested variants.
QVariant unwrapped(QVariant value);

// What a D-Bus value says, inside any number of variants, when its signature is that of `Value`; nullopt for every
// other one. Whoever sends a message chooses its signature, and nothing is converted: a text is no number.
template <typename Value>
std::optional<Value> valueOf(const QVariant& value)
{
    const auto plain = unwrapped(value);
    if (plain.metaType() != QMetaType::fromType<Value>())
        return std::nullopt;
    return plain.value<Value>();
}
template <>
std::optional<QVariantMap> valueOf<QVariantMap>(const QVariant& value); // a{sv}

// What is yet to be read of a value whose signature is this one; nullopt for every other one.
std::optional<QDBusArgument> unreadOf(const QVariant& value, const char* signature);

template <typename Value>
std::optional<Value> argumentOf(const QDBusMessage& message, int index = 0)
{
    if (message.type() == QDBusMessage::ErrorMessage || message.arguments().size() <= index)
        return std::nullopt;
    return valueOf<Value>(message.arguments().at(index));
}

template <typename Value>
std::optional<Value> memberOf(const QVariantMap& map, const QString& key)
{
    return valueOf<Value>(map.value(key));
}

QDBusMessage getAllCall(const QString& service, const QString& path, const QString& interface);
// The message's a{sv}; empty when that argument is none.
QVariantMap mapOf(const QDBusMessage& message, int argument = 0);

// Calls `handler` for each signal of this kind, until it is destroyed. An empty service or path matches every one.
class DBusSignal final : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<void(const QDBusMessage&)>;
    DBusSignal(QDBusConnection bus, QString service, QString path, QString interface, QString name, Handler handler);
    ~DBusSignal() override;

private:
    Q_SLOT void received(const QDBusMessage& message) { m_handler(message); }

    QDBusConnection m_bus;
    QString m_service, m_path, m_interface, m_name;
    Handler m_handler;
};

} // namespace orrinvale
