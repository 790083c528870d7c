// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerAssertions.h"
#include "platform/linux/IdleGate.h"
#include "platform/linux/LinuxInhibitor.h"

#include <chrono>
#include <set>
#include <vector>

namespace orrinvale
{

class MainQueue;

// Holds off idle sleep through whatever decides about it here: the desktop's own service, the first that grants a lock,
// and beside it logind's "idle" lock. There is one desired state, the live assertions; every reply and every restart of
// a service is reconciled with it. A service that is asked and lets us wait has not refused: its lock comes when it
// answers. Owned by the composition root; main thread.
class LinuxPowerAssertions final : public PowerAssertions
{
public:
    // Either bus may be disconnected: what it carries is then not there.
    LinuxPowerAssertions(const QDBusConnection& sessionBus, const QDBusConnection& systemBus, MainQueue& queue);
    ~LinuxPowerAssertions() override;

    // The system bus was stopped and started again.
    void useSystemBus(const QDBusConnection& systemBus);

    Created create(std::string_view type, std::uint32_t level, std::string_view name) override;
    void release(std::uint32_t id) override;

private:
    using Inhibitors = std::vector<std::unique_ptr<LinuxInhibitor>>;

    std::unique_ptr<LinuxInhibitor> makeInhibitor(InhibitorService service, const QDBusConnection& bus);
    std::unique_ptr<IdleGate> makeGate(const QDBusConnection& systemBus);
    void forEach(const std::function<void(LinuxInhibitor&)>& visit) const;
    void begin(const QString& why);
    bool isHeld() const;
    bool isWaiting() const;
    bool isAsked() const;
    void settle();
    void askAgainWhileNothingIsHeld();
    void reconcile();
    void reconcileDesktop();
    void reconcileLogind();
    void waitForGrant();
    std::int32_t failure() const;

    MainQueue& m_queue;
    QDBusConnection m_sessionBus;
    Inhibitors m_desktop;                     // preferred first
    std::unique_ptr<LinuxInhibitor> m_logind; // null where it is not to be used
    LinuxInhibitor* m_policyAgent = nullptr;
    LinuxInhibitor* m_sessionManager = nullptr;
    std::unique_ptr<IdleGate> m_gate; // the session manager's
    bool m_sawPolicyAgent = false;
    std::set<std::uint32_t> m_live;
    std::uint32_t m_lastID = 0;
    QString m_why; // of the assertion that made the set non-empty
    Cancellable m_settling;
    Cancellable m_askingAgain;
};

} // namespace orrinvale
