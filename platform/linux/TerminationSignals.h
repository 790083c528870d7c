// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace orrinvale
{

// Hands SIGTERM, SIGINT and SIGHUP to `onSignal` in a turn of the event loop, and ignores SIGPIPE. To be made before
// any thread is. Main thread.
class TerminationSignals final : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

    // From now on `onSignal` answers; needs the application object.
    void listen(std::function<void()> onSignal);

private:
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace orrinvale
