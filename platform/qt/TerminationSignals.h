// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace orrinvale
{

// Hands SIGTERM, SIGINT and SIGHUP to `onSignal` in a turn of the event loop, and ignores SIGPIPE and SIGXFSZ, whose
// calls fail then. A process that has not ended five seconds after the first of them, whatever its main thread waits
// for, is ended by the system. To be made before any thread is, and once at a time. Main thread.
class TerminationSignals final : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

    // From now on `onSignal` answers; needs the application object.
    void listen(std::function<void()> onSignal);

private:
    Descriptor m_arrivals; // a pipe's end,
    Descriptor m_handlers; // and the one that the handler writes to
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace orrinvale
