// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "platform/ProcessStatus.h"

#include <QProcess>

#include <memory>

namespace orrinvale
{

// The table of the system's process status tool, which measures by itself. Main thread; the tool runs beside it.
class MacProcessStatus final : public ProcessStatus
{
public:
    explicit MacProcessStatus(MainQueue& queue, QString program = QStringLiteral("/bin/ps"));

    void prepare() override;
    void forget() override;
    std::optional<std::string> table() override { return m_table; }

private:
    void read();
    void finish(QProcess::ExitStatus status);

    MainQueue& m_queue;
    QString m_program;
    std::optional<std::string> m_table;
    QByteArray m_output;
    std::unique_ptr<QProcess> m_running;
    Cancellable m_patience;
};

} // namespace orrinvale
