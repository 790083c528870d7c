// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/platform/ScriptedService.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>

namespace orrinvale
{

inline QDBusMessage callLogind(const QString& method, const QDBusConnection& bus = QDBusConnection::systemBus())
{
    return bus.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.login1"),
                                                   QStringLiteral("/org/freedesktop/login1"),
                                                   QStringLiteral("org.freedesktop.login1.Manager"), method));
}

// logind's locks of one holder, each as "what why mode".
inline QStringList logindLocks(const QString& holder = QStringLiteral("orrinvale"),
                               const QDBusConnection& bus = QDBusConnection::systemBus())
{
    const auto reply = callLogind(QStringLiteral("ListInhibitors"), bus);
    if (reply.arguments().isEmpty())
        return {QStringLiteral("no answer: ") + reply.errorMessage()};
    QStringList locks;
    const auto list = reply.arguments().first().value<QDBusArgument>();
    for (list.beginArray(); !list.atEnd();) {
        QString what, who, why, mode;
        uint user = 0;
        uint process = 0;
        list.beginStructure();
        list >> what >> who >> why >> mode >> user >> process;
        list.endStructure();
        if (who == holder)
            locks << what + u' ' + why + u' ' + mode;
    }
    return locks;
}

// Controls the services of the private bed that the test runs in.
inline bool bed(const QStringList& arguments)
{
    return QProcess::execute(qEnvironmentVariable("BED_TOOL"), arguments) == 0;
}

template <typename Work>
std::chrono::milliseconds timeTaken(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin);
}

// power_service.py
struct PowerService : ScriptedService {
    explicit PowerService(const QStringList& arguments, Start start = Start::owning)
        : ScriptedService(QStringLiteral(POWER_SERVICE), arguments, start)
    {
    }
};

} // namespace orrinvale
