// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace orrinvale
{

// Calls `end` when the end of the session, or Qt itself, asks the application to quit. Qt would ask every window to
// close first, and one that refuses would keep the application from ending. Main thread.
class QuitRequests final : public QObject
{
    Q_OBJECT

public:
    QuitRequests(QObject& application, std::function<void()> end);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    std::function<void()> m_end;
};

} // namespace orrinvale
