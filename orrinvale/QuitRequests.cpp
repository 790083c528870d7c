// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/QuitRequests.h"

#include <QEvent>

namespace orrinvale
{

QuitRequests::QuitRequests(QObject& application, std::function<void()> end) : m_end(std::move(end))
{
    application.installEventFilter(this);
}

bool QuitRequests::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::Quit)
        return QObject::eventFilter(object, event);
    m_end();
    return true;
}

} // namespace orrinvale
