// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/TerminationSignals.h"

#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

namespace orrinvale
{

TerminationSignals::TerminationSignals()
{
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t handled;
    sigemptyset(&handled);
    for (const auto number : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&handled, number);
    ::sigprocmask(SIG_BLOCK, &handled, nullptr);
    m_descriptor = ::signalfd(-1, &handled, SFD_CLOEXEC | SFD_NONBLOCK);
}

void TerminationSignals::listen(std::function<void()> onSignal)
{
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, this, [this, onSignal = std::move(onSignal)] {
        signalfd_siginfo information;
        while (::read(m_descriptor, &information, sizeof information) > 0) {
        }
        onSignal();
    });
}

TerminationSignals::~TerminationSignals()
{
    ::close(m_descriptor);
}

} // namespace orrinvale
