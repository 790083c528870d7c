// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxInhibitor.h"

#include "base/ConsoleLine.h"
#include "base/MainQueue.h"
#include "platform/linux/DBus.h"

#include <QDBusError>

#include <cerrno>
#include <limits>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// The slowest of them, PowerDevil, enforces a lock five seconds after it has granted it.
constexpr auto settlingTime = 7s;
constexpr std::int32_t doesNotCount = -ENOLCK;

std::int32_t errorCode(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ErrorMessage)
        return -EBADMSG; // an answer of the wrong shape
    switch (QDBusError(reply).type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownObject:
    case QDBusError::UnknownInterface:
    case QDBusError::UnknownMethod:
    case QDBusError::NotSupported:
        return -ENOTSUP;
    case QDBusError::AccessDenied:
        return -EACCES;
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return -ETIMEDOUT;
    case QDBusError::Disconnected:
        return -ENOTCONN;
    default:
        return -EIO;
    }
}

} // namespace

LinuxInhibitor::LinuxInhibitor(InhibitorService service, const QDBusConnection& bus, MainQueue& queue,
                               Handlers handlers)
    : m_service(std::move(service)), m_bus(bus), m_queue(queue), m_handlers(std::move(handlers)),
      m_watcher(m_service.name, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) { changeOwner(newOwner); });
    auto question =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    question << m_service.name;
    m_presence = send(question);
}

// A lock still under way would outlive its inhibitor on the shared connection: it is given back when it comes.
LinuxInhibitor::~LinuxInhibitor()
{
    if (!m_request)
        return;
    if (m_request->isFinished()) {
        m_service.lock(m_bus, m_request->reply()).cancel();
        return;
    }
    auto* call = m_request.release();
    call->disconnect(this);
    connect(call, &QDBusPendingCallWatcher::finished, call, [call, bus = m_bus, lock = m_service.lock] {
        lock(bus, call->reply()).cancel();
        call->deleteLater();
    });
}

// Without a time limit of its own: a call given up too early would leave a lock that nobody can release.
LinuxInhibitor::Call LinuxInhibitor::send(const QDBusMessage& message)
{
    auto call = std::make_unique<QDBusPendingCallWatcher>(m_bus.asyncCall(message, std::numeric_limits<int>::max()));
    const auto settle = [this] {
        if (takeReply())
            m_handlers.answered();
    };
    // Queued: taking the reply ends the watcher, which must not be in the middle of its own signal then.
    connect(call.get(), &QDBusPendingCallWatcher::finished, this, settle, Qt::QueuedConnection);
    return call;
}

void LinuxInhibitor::want(const std::optional<QString>& why)
{
    m_wanted = why;
    follow();
}

void LinuxInhibitor::setGate(Gate gate)
{
    if (std::exchange(m_gate, gate) != gate)
        follow();
}

void LinuxInhibitor::follow()
{
    if (!m_wanted || m_gate == Gate::closed) {
        m_nextCheck.cancel();
        m_lock.cancel();
        m_previousLock.cancel();
    } else if (!m_lock && !m_request && isAvailable()) {
        m_requested = *m_wanted;
        m_request = send(m_service.request(m_requested));
    }
}

void LinuxInhibitor::forgetPassingRefusal()
{
    if (m_error != doesNotCount)
        m_error = 0;
}

bool LinuxInhibitor::takeReply()
{
    const auto finished = [](const Call& call) { return call && call->isFinished(); };
    if (finished(m_presence)) {
        takePresence(std::exchange(m_presence, nullptr)->reply());
        return true;
    }
    if (finished(m_request)) {
        takeGrant(std::exchange(m_request, nullptr)->reply());
        return true;
    }
    return false;
}

void LinuxInhibitor::takePresence(const QDBusMessage& reply)
{
    m_isPresent = argumentOf<bool>(reply) == true;
}

void LinuxInhibitor::takeGrant(const QDBusMessage& reply)
{
    const auto granted = reply.type() == QDBusMessage::ReplyMessage;
    auto lock = granted ? m_service.lock(m_bus, reply) : Cancellable();
    if (!lock) {
        m_error = errorCode(reply);
        return;
    }
    if (m_wanted != m_requested || m_gate == Gate::closed)
        return; // dropped, and so released
    m_lock = std::move(lock);
    m_previousLock.cancel();
    ++m_grants;
    if (m_service.question)
        m_nextCheck = m_queue.after(settlingTime, [this] { check(); });
    m_handlers.granted();
}

void LinuxInhibitor::check()
{
    callLater(m_bus, m_service.question(), this, [this, grant = m_grants](const QDBusMessage& reply) {
        if (m_lock && grant == m_grants)
            takeCheck(reply);
    });
}

// A service that does not know the question, or does not answer it, is believed.
void LinuxInhibitor::takeCheck(const QDBusMessage& reply)
{
    if (m_service.counts(reply) != false)
        return;
    consoleLine("PowerAssertions", m_service.name.toStdString() + " grants a lock that does not count");
    m_lock.cancel();
    m_error = doesNotCount;
    m_handlers.answered();
}

void LinuxInhibitor::changeOwner(const QString& newOwner)
{
    m_isPresent = !newOwner.isEmpty();
    m_error = 0;
    m_presence.reset();
    m_request.reset();
    m_nextCheck.cancel();
    if (m_lock && m_service.restart == InhibitorService::Restart::mayKeepLock)
        m_previousLock = std::move(m_lock);
    m_lock.detach();
    m_handlers.ownerChanged();
}

} // namespace orrinvale
