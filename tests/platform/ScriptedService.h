// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/platform/WaitFor.h"

#include <QProcess>
#include <QStringList>

namespace orrinvale
{

// Runs a script that plays a service of the session bus and writes down what it is asked, until it is destroyed.
class ScriptedService
{
public:
    // A queued one gets the name when the present owner ends, without a moment in between.
    enum class Start { owning, queued };

    explicit ScriptedService(const QString& script, const QStringList& arguments, Start start = Start::owning)
    {
        const auto awaited = start == Start::owning ? QStringLiteral("ready") : QStringLiteral("started");
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(script, arguments);
        waitFor([&] { return lines().contains(awaited); });
    }
    ~ScriptedService()
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

protected:
    void write(const QByteArray& line) { m_process.write(line + "\n"); }

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
