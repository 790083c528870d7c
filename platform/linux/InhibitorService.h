// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

#include <functional>

namespace orrinvale
{

// How one D-Bus service is asked not to suspend the idle machine, and how its lock is given back. A plain value.
struct InhibitorService {
    // What is left of a lock when the service restarts: a cookie is gone with the service that gave it; a descriptor
    // may still count, and stays open until there is another one.
    enum class Restart { losesLock, mayKeepLock };

    QString name;
    Restart restart = Restart::losesLock;
    std::function<QDBusMessage(const QString& why)> request;
    // Cancelling the lock releases it, detaching it forgets it without a word. Empty when the reply grants nothing.
    std::function<Cancellable(const QDBusConnection&, const QDBusMessage& reply)> lock;
};

InhibitorService logindIdleService();
InhibitorService policyAgentService();
InhibitorService sessionManagerService();
InhibitorService powerManagementService();
InhibitorService screenSaverService();
InhibitorService portalService();

} // namespace orrinvale
