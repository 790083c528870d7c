// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Look.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

namespace orrinvale
{

// What this process and the one that started it tell each other, a line each: we report on standard output, orders
// arrive on standard input. Its end means that nobody needs us any more. Main thread.
class Conversation final : public QObject
{
    Q_OBJECT

public:
    Conversation();

    void report(const char* line);

Q_SIGNALS:
    void raiseOrdered();
    void lookOrdered(Look look);
    void ended();

private:
    void read();
    void obey(const QByteArray& line);

    QByteArray m_pending; // a line that has not ended yet
    QSocketNotifier m_input;
};

} // namespace orrinvale
