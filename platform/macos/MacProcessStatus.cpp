// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacProcessStatus.h"

#include "base/Text.h"

#include <QProcessEnvironment>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto longestRun = 3s;
constexpr qsizetype longestTable = 1 << 20; // bytes: several thousand processes

} // namespace

MacProcessStatus::MacProcessStatus(MainQueue& queue, QString program) : m_queue(queue), m_program(std::move(program)) {}

void MacProcessStatus::prepare()
{
    if (m_running)
        return;
    m_output.clear();
    m_running = std::make_unique<QProcess>();
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C")); // else the user's decimal comma
    m_running->setProcessEnvironment(environment);
    m_running->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(m_running.get(), &QProcess::readyReadStandardOutput, m_running.get(), [this] { read(); });
    QObject::connect(m_running.get(), &QProcess::finished, m_running.get(),
                     [this](int, QProcess::ExitStatus status) { finish(status); });
    QObject::connect(m_running.get(), &QProcess::errorOccurred, m_running.get(), [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            finish(QProcess::CrashExit);
    });
    m_patience = m_queue.after(longestRun, [this] { m_running->kill(); });
    m_running->start(m_program, {QStringLiteral("-eo"), QStringLiteral("pid,pcpu,comm"), QStringLiteral("-r")});
}

void MacProcessStatus::forget()
{
    m_patience.cancel();
    m_running.reset();
    m_table.reset();
}

void MacProcessStatus::read()
{
    m_output += m_running->readAllStandardOutput();
    if (m_output.size() > longestTable)
        m_running->kill();
}

void MacProcessStatus::finish(QProcess::ExitStatus status)
{
    read();
    if (status == QProcess::NormalExit)
        m_table = validUtf8(m_output.toStdString());
    m_patience.cancel();
    m_running.release()->deleteLater(); // it is still telling
}

} // namespace orrinvale
