// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/Conversation.h"

#include "orrinvale/FeedbackLines.h"

#include <cerrno>
#include <cstdio>

#include <unistd.h>

namespace orrinvale
{

namespace
{

constexpr auto longestLine = 1024;

} // namespace

Conversation::Conversation() : m_input(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_input, &QSocketNotifier::activated, this, &Conversation::read);
}

void Conversation::report(const char* line)
{
    std::puts(line);
    std::fflush(stdout);
}

void Conversation::read()
{
    char buffer[longestLine];
    const auto count = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0) {
        m_input.setEnabled(false);
        Q_EMIT ended();
        return;
    }
    m_pending.append(buffer, count);
    for (auto end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
        obey(m_pending.left(end));
        m_pending.remove(0, end + 1);
    }
    if (m_pending.size() > longestLine)
        m_pending.clear();
}

void Conversation::obey(const QByteArray& line)
{
    if (line == feedbackLines::raise)
        Q_EMIT raiseOrdered();
    if (!line.startsWith(feedbackLines::look))
        return;
    if (const auto look = feedbackLines::lookNamed(line.mid(QByteArrayView(feedbackLines::look).size())))
        Q_EMIT lookOrdered(*look);
}

} // namespace orrinvale
