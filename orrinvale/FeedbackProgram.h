// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/FeedbackOverlay.h"

#include <QObject>
#include <QProcess>

#include <memory>

namespace orrinvale
{

// One run of the program that shows the feedback form, from its start to its end. Nothing waits for it: when the
// owner lets go of it, the program's window closes and the process ends by itself. Main thread.
class FeedbackProgram final : public QObject
{
    Q_OBJECT

public:
    enum class Ending { closed, failed };

    FeedbackProgram(const QString& path, Look look, FeedbackOverlay::Motion motion);
    ~FeedbackProgram() override;

    void raise();
    void applyTheme(Look look);

Q_SIGNALS:
    // Its window is on the screen.
    void shown();
    // It is over: the user closed the window, or the program did not start or broke down.
    void ended(orrinvale::FeedbackProgram::Ending ending);

private:
    void order(const QByteArray& line);
    void read();

    std::unique_ptr<QProcess> m_process;
};

} // namespace orrinvale
