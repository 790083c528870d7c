// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace orrinvale
{

// Sends `call` and hands the reply, an error reply too, to `handler` in a later turn; never once `context` is gone.
void callLater(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage&)> handler);

// The value inside any number of nested variants.
QVariant unwrapped(QVariant value);

QDBusMessage getAllCall(const QString& service, const QString& path, const QString& interface);
// The reply's map; empty when it holds none.
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
