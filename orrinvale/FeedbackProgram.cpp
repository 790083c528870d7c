// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackProgram.h"

#include "orrinvale/FeedbackLines.h"

#include <QTimer>

#include <chrono>

namespace orrinvale
{

namespace
{

using namespace std::chrono_literals;

// What does not end by itself within this time is ended.
constexpr auto grace = 5s;

QStringList argumentsFor(Look look, FeedbackOverlay::Motion motion)
{
    QStringList arguments{QStringLiteral("--look"), QLatin1String(feedbackLines::nameOf(look))};
    if (motion == FeedbackOverlay::Motion::still)
        arguments += QStringLiteral("--still");
    return arguments;
}

} // namespace

FeedbackProgram::FeedbackProgram(const QString& path, Look look, FeedbackOverlay::Motion motion)
    : m_process(std::make_unique<QProcess>())
{
    // The web engine talks on standard error.
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &FeedbackProgram::read);
    connect(m_process.get(), &QProcess::finished, this, [this](int status, QProcess::ExitStatus how) {
        Q_EMIT ended(how == QProcess::NormalExit && status == 0 ? Ending::closed : Ending::failed);
    });
    // Queued, because a start that fails may say so before it returns.
    connect(
        m_process.get(), &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                Q_EMIT ended(Ending::failed);
        },
        Qt::QueuedConnection);
    m_process->start(path, argumentsFor(look, motion));
}

FeedbackProgram::~FeedbackProgram()
{
    // The destructor of a process that runs would wait for its end.
    auto* process = m_process.release();
    process->disconnect(this);
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    if (process->state() == QProcess::NotRunning)
        process->deleteLater();
    else
        QTimer::singleShot(grace, process, &QProcess::kill);
    process->closeWriteChannel();
}

void FeedbackProgram::raise()
{
    order(feedbackLines::raise);
}

void FeedbackProgram::applyTheme(Look look)
{
    order(QByteArray(feedbackLines::look) + feedbackLines::nameOf(look));
}

void FeedbackProgram::order(const QByteArray& line)
{
    m_process->write(line + '\n');
}

void FeedbackProgram::read()
{
    // Whatever it reports, it reports from a window; how far the form is shows there.
    if (!m_process->readAllStandardOutput().isEmpty())
        Q_EMIT shown();
}

} // namespace orrinvale
