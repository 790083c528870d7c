// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerAssertions.h"

#include "base/MainQueue.h"
#include "base/Text.h"

#include <QFile>
#include <QThread>

#include <algorithm>
#include <cerrno>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr auto answerBound = 900ms;   // for all candidates together
constexpr auto settlingTime = 750ms;  // a service that has just come back is not always ready to be asked
constexpr auto askingAgainTime = 30s; // while what is wanted is held by nobody
constexpr std::uint32_t levelOn = 255;

bool isDesktop(QStringView name)
{
    const auto desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    return std::ranges::any_of(desktops,
                               [&](const QString& desktop) { return desktop.compare(name, Qt::CaseInsensitive) == 0; });
}

// SNAP_NAME of another name is inherited from a terminal that came as a snap.
bool isSandboxed()
{
    return QFile::exists(QStringLiteral("/.flatpak-info")) ||
           qEnvironmentVariable("SNAP_NAME") == QStringLiteral("orrinvale");
}

} // namespace

LinuxPowerAssertions::LinuxPowerAssertions(const QDBusConnection& sessionBus, const QDBusConnection& systemBus,
                                           MainQueue& queue)
    : m_queue(queue), m_sessionBus(sessionBus)
{
    if (isSandboxed()) {
        m_desktop.push_back(makeInhibitor(portalService(), sessionBus));
        return;
    }
    if (isDesktop(u"COSMIC")) {
        m_desktop.push_back(makeInhibitor(screenSaverService(), sessionBus));
    } else {
        m_desktop.push_back(makeInhibitor(policyAgentService(), sessionBus));
        m_policyAgent = m_desktop.back().get();
        m_desktop.push_back(makeInhibitor(sessionManagerService(), sessionBus));
        m_sessionManager = m_desktop.back().get();
        m_gate = makeGate(systemBus);
        m_desktop.push_back(makeInhibitor(powerManagementService(), sessionBus));
    }
    // LXQt suspends by itself and looks at no logind lock: one there would be a false promise.
    if (!isDesktop(u"LXQt"))
        m_logind = makeInhibitor(logindIdleService(), systemBus);
}

std::unique_ptr<IdleGate> LinuxPowerAssertions::makeGate(const QDBusConnection& systemBus)
{
    return std::make_unique<IdleGate>(m_sessionBus, systemBus, m_queue, [this] { reconcile(); });
}

// The session manager's lock on the login manager went with the old bus: whether its new one binds is looked at when it
// is granted, and the lock that stands is looked at once more.
void LinuxPowerAssertions::useSystemBus(const QDBusConnection& systemBus)
{
    if (m_logind)
        m_logind = makeInhibitor(logindIdleService(), systemBus);
    if (m_gate) {
        m_gate = makeGate(systemBus);
        m_gate->look();
    }
    settle(); // the bus is there before those whom it carries
}

// Locks go with their inhibitors.
LinuxPowerAssertions::~LinuxPowerAssertions() = default;

std::unique_ptr<LinuxInhibitor> LinuxPowerAssertions::makeInhibitor(InhibitorService service,
                                                                    const QDBusConnection& bus)
{
    const auto isSessionManager = service.name == sessionManagerService().name;
    LinuxInhibitor::Handlers handlers{
        .answered = [this] { reconcile(); }, .ownerChanged = [this] { settle(); }, .granted = [] {}};
    if (isSessionManager) {
        handlers.granted = [this] { m_gate->look(); };
        handlers.ownerChanged = [this] {
            m_gate->forget();
            settle();
        };
    }
    return std::make_unique<LinuxInhibitor>(std::move(service), bus, m_queue, std::move(handlers));
}

PowerAssertions::Created LinuxPowerAssertions::create(std::string_view type, std::uint32_t level, std::string_view name)
{
    if (type != "NoIdleSleepAssertion" || level != levelOn)
        return {-EINVAL, 0};
    if (m_live.empty())
        begin(QString::fromStdString(withVisibleControls(name)));
    const auto id = ++m_lastID;
    m_live.insert(id);
    waitForGrant();
    if (isHeld() || isAsked())
        return {0, id};
    const auto status = failure();
    release(id);
    return {status, 0};
}

void LinuxPowerAssertions::begin(const QString& why)
{
    m_why = why;
    m_settling.cancel();
    forEach([](LinuxInhibitor& inhibitor) { inhibitor.forgetRefusal(); });
}

void LinuxPowerAssertions::release(std::uint32_t id)
{
    if (m_live.erase(id) != 0)
        reconcile();
}

void LinuxPowerAssertions::forEach(const std::function<void(LinuxInhibitor&)>& visit) const
{
    for (const auto& inhibitor : m_desktop)
        visit(*inhibitor);
    if (m_logind)
        visit(*m_logind);
}

bool LinuxPowerAssertions::isHeld() const
{
    bool held = false;
    forEach([&](const LinuxInhibitor& inhibitor) { held = held || inhibitor.isHeld(); });
    return held;
}

bool LinuxPowerAssertions::isWaiting() const
{
    bool waiting = false;
    forEach([&](const LinuxInhibitor& inhibitor) { waiting = waiting || inhibitor.isWaiting(); });
    return waiting;
}

bool LinuxPowerAssertions::isAsked() const
{
    bool asked = false;
    forEach([&](const LinuxInhibitor& inhibitor) { asked = asked || inhibitor.isAsked(); });
    return asked;
}

// The first lock is enough to go on: what is still asked by then comes in through the event loop. Replies are looked
// for instead of waited for because Qt offers no wait with a time limit that leaves the call alive, and an event loop
// of our own would run the application's timers in the middle of its decision.
void LinuxPowerAssertions::waitForGrant()
{
    const auto deadline = std::chrono::steady_clock::now() + answerBound;
    auto pause = 50us;
    reconcile();
    while (!isHeld() && isWaiting() && std::chrono::steady_clock::now() < deadline) {
        QThread::usleep(static_cast<unsigned long>(pause.count()));
        pause = std::min<std::chrono::microseconds>(pause + 10us, 2ms);
        bool answered = false;
        forEach([&](LinuxInhibitor& inhibitor) { answered = inhibitor.takeReply() || answered; });
        if (answered)
            reconcile();
    }
}

std::int32_t LinuxPowerAssertions::failure() const
{
    if (isWaiting())
        return -ETIMEDOUT;
    std::int32_t status = -ENOTSUP;
    forEach([&](const LinuxInhibitor& inhibitor) {
        if (inhibitor.error() != 0 && status == -ENOTSUP)
            status = inhibitor.error();
    });
    return status;
}

// A service that came, or came back, is asked a little later; one that keeps restarting is not asked at all meanwhile.
void LinuxPowerAssertions::settle()
{
    if (m_live.empty())
        return;
    m_settling = m_queue.after(settlingTime, [this] {
        m_settling = {};
        reconcile();
    });
}

void LinuxPowerAssertions::reconcile()
{
    if (m_live.empty()) {
        m_settling.cancel();
        m_askingAgain.cancel();
        forEach([](LinuxInhibitor& inhibitor) { inhibitor.want(std::nullopt); });
    } else if (!m_settling) {
        if (m_sessionManager)
            m_sessionManager->setGate(m_gate->gate());
        reconcileDesktop();
        reconcileLogind();
        askAgainWhileNothingIsHeld();
    }
}

// A service that refused may have had a passing reason, as one has that is only starting.
void LinuxPowerAssertions::askAgainWhileNothingIsHeld()
{
    if (isHeld())
        m_askingAgain.cancel();
    else if (!m_askingAgain)
        m_askingAgain = m_queue.every(askingAgainTime, [this] {
            forEach([](LinuxInhibitor& inhibitor) { inhibitor.forgetPassingRefusal(); });
            reconcile();
        });
}

// The holder stays, even when a preferred service turns up: one lock is enough. Without one, the first that may grant
// it is asked, and none behind it before it has refused.
void LinuxPowerAssertions::reconcileDesktop()
{
    auto chosen = std::ranges::find_if(m_desktop, [](const auto& inhibitor) { return inhibitor->isHeld(); });
    if (chosen == m_desktop.end())
        chosen = std::ranges::find_if(
            m_desktop, [](const auto& inhibitor) { return inhibitor->isWaiting() || inhibitor->isAvailable(); });
    for (auto inhibitor = m_desktop.begin(); inhibitor != m_desktop.end(); ++inhibitor)
        (*inhibitor)->want(inhibitor == chosen ? std::optional(m_why) : std::nullopt);
}

// On Plasma a logind lock would keep the screen on too. Once seen there, its agent being gone for a moment does not
// make this another desktop; and before it is known whether the agent is there, logind is not asked.
void LinuxPowerAssertions::reconcileLogind()
{
    if (!m_logind)
        return;
    m_sawPolicyAgent = m_sawPolicyAgent || (m_policyAgent && m_policyAgent->isPresent());
    const bool isUnknown = m_policyAgent && m_policyAgent->isWaiting();
    if (m_sawPolicyAgent)
        m_logind->want(std::nullopt);
    else if (!isUnknown)
        m_logind->want(m_why);
}

} // namespace orrinvale
