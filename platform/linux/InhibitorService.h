// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

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
    // Whether a lock that was granted counts. A service without this question is believed.
    std::function<QDBusMessage()> question;
    // nullopt where the answer does not tell.
    std::function<std::optional<bool>(const QDBusMessage& reply)> counts;
};

// One row of the login manager's list.
struct LoginManagerLock {
    QString what; // "idle", "sleep", "shutdown" …, with colons between
    QString who;
    QString mode; // "block", "delay", "block-weak"
    uint process;

    bool holds(QStringView thing) const;
};
QDBusMessage loginManagerCall(const QString& interface, const QString& method, const QVariantList& arguments);
std::optional<std::vector<LoginManagerLock>> loginManagerLocks(const QDBusMessage& listInhibitorsReply);

InhibitorService logindIdleService();
InhibitorService policyAgentService();
InhibitorService sessionManagerService();
InhibitorService powerManagementService();
InhibitorService screenSaverService();
InhibitorService portalService();

} // namespace orrinvale
