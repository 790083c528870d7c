// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/platform/WaitFor.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>

#include <chrono>

namespace orrinvale
{

inline QDBusMessage callLogind(const QString& method)
{
    return QDBusConnection::systemBus().call(QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), method));
}

// logind's locks of one holder, each as "what why mode".
inline QStringList logindLocks(const QString& holder = QStringLiteral("orrinvale"))
{
    const auto reply = callLogind(QStringLiteral("ListInhibitors"));
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

// Runs power_service.py until it is destroyed.
class PowerService
{
public:
    // A queued one gets the name when the present owner ends, without a moment in between.
    enum class Start { owning, queued };

    explicit PowerService(const QStringList& arguments, Start start = Start::owning)
    {
        const auto awaited = start == Start::owning ? QStringLiteral("ready") : QStringLiteral("started");
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(POWER_SERVICE), arguments);
        waitFor([&] { return lines().contains(awaited); });
    }
    ~PowerService()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    // What it was asked and answered, without the two opening lines.
    QStringList log() { return lines().mid(2); }
    bool logs(const QStringList& expected)
    {
        return waitFor([&] { return log() == expected; });
    }

private:
    QStringList lines()
    {
        m_output += QString::fromUtf8(m_process.readAllStandardOutput());
        return m_output.split(u'\n', Qt::SkipEmptyParts);
    }

    QProcess m_process;
    QString m_output;
};

} // namespace orrinvale
