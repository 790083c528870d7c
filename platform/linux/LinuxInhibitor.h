// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/InhibitorService.h"

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QObject>

#include <cstdint>
#include <memory>
#include <optional>

namespace orrinvale
{

class MainQueue;

// The lock that one service holds for us. It follows what it is told to want, and whether its gate lets that through:
// each reply and each change of the service's owner is compared with both, and a lock that is not to be held any more
// is released at once. Some seconds after a grant the service is asked whether it counts; one that does not is a
// refusal. Never starts a service and never waits. Main thread; owned by LinuxPowerAssertions.
class LinuxInhibitor final : public QObject
{
public:
    struct Handlers {
        std::function<void()> answered;     // a reply was taken in
        std::function<void()> ownerChanged; // the service came, went or was replaced; its lock is forgotten
        std::function<void()> granted;      // there is a new lock
    };
    // What is wanted is held: always, not now, now. A closed one counts as held: the lock is taken when it opens.
    enum class Gate { none, closed, open };

    LinuxInhibitor(InhibitorService service, const QDBusConnection& bus, MainQueue& queue, Handlers handlers);
    ~LinuxInhibitor() override;

    // Asks for the lock, or keeps it; nothing wanted: releases it.
    void want(const std::optional<QString>& why);
    void setGate(Gate gate);
    // A refusal counts until the service is replaced or this is called.
    void forgetRefusal() { m_error = 0; }
    // The same, but for a service that grants locks which do not count.
    void forgetPassingRefusal();
    // Takes in a reply that has come, without the event loop; true when there was one.
    bool takeReply();

    bool isHeld() const { return m_lock || (m_wanted && m_gate == Gate::closed && isAvailable()); }
    bool isWaiting() const { return m_presence || m_request; }
    bool isAsked() const { return static_cast<bool>(m_request); }
    // The service is there, as far as is known, and has not refused.
    bool isAvailable() const { return m_isPresent && m_error == 0; }
    bool isPresent() const { return m_isPresent; }
    // 0 or the negative code of the last refusal.
    std::int32_t error() const { return m_error; }

private:
    using Call = std::unique_ptr<QDBusPendingCallWatcher>;

    Call send(const QDBusMessage& message);
    void request();
    void takePresence(const QDBusMessage& reply);
    void takeGrant(const QDBusMessage& reply);
    void follow();
    void check();
    void takeCheck(const QDBusMessage& reply);
    void changeOwner(const QString& newOwner);

    const InhibitorService m_service;
    QDBusConnection m_bus;
    MainQueue& m_queue;
    const Handlers m_handlers;
    QDBusServiceWatcher m_watcher;
    bool m_isPresent = false;
    std::int32_t m_error = 0;
    std::optional<QString> m_wanted;
    Gate m_gate = Gate::none;
    QString m_requested; // the reason that the call under way bears
    Cancellable m_lock;
    Cancellable m_previousLock; // of the service's earlier life
    int m_grants = 0;           // counts the locks: an answer about an earlier one is none about the present one
    Cancellable m_nextCheck;
    Call m_presence;
    Call m_request;
};

} // namespace orrinvale
