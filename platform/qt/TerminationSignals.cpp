// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/qt/TerminationSignals.h"

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

constexpr unsigned secondsToEnd = 5; // a busy machine gets by with far less
constexpr std::array handled{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t arrivals = -1; // the handler's descriptor

// May interrupt anything on any thread: what it calls is on signal-safety(7)'s list.
void noteArrival(int)
{
    const auto savedError = errno;
    [[maybe_unused]] const auto written = ::write(arrivals, "", 1);
    if (const auto left = ::alarm(secondsToEnd); left > 0)
        ::alarm(left); // the first one counts
    errno = savedError;
}

void setHandler(int number, void (*handler)(int))
{
    struct sigaction action {
    };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

// Whoever started us may have blocked them.
void unblock(int number)
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, number);
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals()
{
    int ends[2] = {-1, -1};
    if (::pipe(ends) == 0) // pipe2 is Linux's alone; no other thread is there yet that could start a program
        for (const auto end : ends) {
            ::fcntl(end, F_SETFD, FD_CLOEXEC);
            ::fcntl(end, F_SETFL, O_NONBLOCK);
        }
    m_arrivals = Descriptor(ends[0]);
    m_handlers = Descriptor(ends[1]);
    arrivals = m_handlers.get();
    setHandler(SIGPIPE, SIG_IGN);
    setHandler(SIGXFSZ, SIG_IGN);
    setHandler(SIGALRM, SIG_DFL);
    unblock(SIGALRM);
    for (const auto number : handled) {
        setHandler(number, noteArrival);
        unblock(number);
    }
}

void TerminationSignals::listen(std::function<void()> onSignal)
{
    m_notifier = std::make_unique<QSocketNotifier>(m_arrivals.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, this, [this, onSignal = std::move(onSignal)] {
        std::array<char, 64> arrived{};
        if (::read(m_arrivals.get(), arrived.data(), arrived.size()) > 0)
            onSignal(); // several at once are one
    });
}

TerminationSignals::~TerminationSignals()
{
    for (const auto number : handled)
        setHandler(number, SIG_DFL);
    ::alarm(0);
    m_notifier.reset();
}

} // namespace orrinvale
