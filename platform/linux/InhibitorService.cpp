// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/InhibitorService.h"

#include "platform/linux/DBus.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>

#include <algorithm>

namespace orrinvale
{

namespace
{

// Constant: Plasma lets its users block an application by this name.
const auto who = QStringLiteral("orrinvale");

const auto loginManager = QStringLiteral("org.freedesktop.login1");

constexpr uint policyInterruptSession = 1; // suspending; 2 would be changing the profile, 4 the screen's settings
constexpr uint sessionManagerSuspend = 4;  // 8 would keep the display on too
constexpr uint portalSuspend = 4;

struct Interface {
    QString service;
    QString path;
    QString name;
};

QDBusMessage call(const Interface& interface, const QString& method, const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(interface.service, interface.path, interface.name, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

struct Question {
    QString method;
    QVariantList arguments;
};

InhibitorService cookieService(const Interface& interface, const QString& take, const QString& release,
                               const std::function<QVariantList(const QString& why)>& arguments,
                               const std::optional<Question>& question)
{
    const auto request = [=](const QString& why) { return call(interface, take, arguments(why)); };
    const auto lock = [=](const QDBusConnection& bus, const QDBusMessage& reply) -> Cancellable {
        const auto cookie = argumentOf<uint>(reply);
        if (!cookie)
            return {};
        return Cancellable([=] { bus.send(call(interface, release, {*cookie})); });
    };
    InhibitorService service{interface.service, InhibitorService::Restart::losesLock, request, lock, {}, {}};
    if (question) {
        service.question = [=] { return call(interface, question->method, question->arguments); };
        service.counts = [](const QDBusMessage& reply) { return argumentOf<bool>(reply); };
    }
    return service;
}

QVariantList whoAndWhy(const QString& why)
{
    return {who, why};
}

} // namespace

bool LoginManagerLock::holds(QStringView thing) const
{
    return QStringView(what).split(u':').contains(thing);
}

QDBusMessage loginManagerCall(const QString& interface, const QString& method, const QVariantList& arguments)
{
    return call({loginManager, QStringLiteral("/org/freedesktop/login1"), interface}, method, arguments);
}

std::optional<std::vector<LoginManagerLock>> loginManagerLocks(const QDBusMessage& listInhibitorsReply)
{
    const auto list = unreadOf(listInhibitorsReply.arguments().value(0), "a(ssssuu)");
    if (!list)
        return std::nullopt;
    std::vector<LoginManagerLock> locks;
    for (list->beginArray(); !list->atEnd();) {
        LoginManagerLock lock;
        QString why;
        uint user = 0;
        list->beginStructure();
        *list >> lock.what >> lock.who >> why >> lock.mode >> user >> lock.process;
        list->endStructure();
        locks.push_back(std::move(lock));
    }
    return locks;
}

// "idle" alone: "sleep" would refuse the user's own Suspend as well.
InhibitorService logindIdleService()
{
    const auto manager = QStringLiteral("org.freedesktop.login1.Manager");
    const auto request = [=](const QString& why) {
        return loginManagerCall(manager, QStringLiteral("Inhibit"),
                                {QStringLiteral("idle"), who, why, QStringLiteral("block")});
    };
    const auto lock = [](const QDBusConnection&, const QDBusMessage& reply) -> Cancellable {
        const auto descriptor = argumentOf<QDBusUnixFileDescriptor>(reply);
        if (!descriptor || !descriptor->isValid())
            return {};
        // The token owns the descriptor, and logind frees the lock when its last copy closes.
        return Cancellable([owned = *descriptor] {});
    };
    const auto counts = [](const QDBusMessage& reply) -> std::optional<bool> {
        const auto locks = loginManagerLocks(reply);
        if (!locks)
            return std::nullopt;
        return std::ranges::any_of(*locks, [](const auto& each) { return each.who == who && each.holds(u"idle"); });
    };
    const auto question = [=] { return loginManagerCall(manager, QStringLiteral("ListInhibitors"), {}); };
    return {loginManager, InhibitorService::Restart::mayKeepLock, request, lock, question, counts};
}

InhibitorService policyAgentService()
{
    const auto name = QStringLiteral("org.kde.Solid.PowerManagement.PolicyAgent");
    const Interface agent{name, QStringLiteral("/org/kde/Solid/PowerManagement/PolicyAgent"), name};
    return cookieService(
        agent, QStringLiteral("AddInhibition"), QStringLiteral("ReleaseInhibition"),
        [](const QString& why) -> QVariantList {
            return {policyInterruptSession, who, why};
        },
        Question{QStringLiteral("HasInhibition"), {policyInterruptSession}});
}

InhibitorService sessionManagerService()
{
    const auto name = QStringLiteral("org.gnome.SessionManager");
    const Interface manager{name, QStringLiteral("/org/gnome/SessionManager"), name};
    constexpr uint noWindow = 0;
    return cookieService(
        manager, QStringLiteral("Inhibit"), QStringLiteral("Uninhibit"),
        [](const QString& why) -> QVariantList {
            return {who, noWindow, why, sessionManagerSuspend};
        },
        Question{QStringLiteral("IsInhibited"), {sessionManagerSuspend}});
}

InhibitorService powerManagementService()
{
    const Interface inhibit{QStringLiteral("org.freedesktop.PowerManagement"),
                            QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"),
                            QStringLiteral("org.freedesktop.PowerManagement.Inhibit")};
    return cookieService(inhibit, QStringLiteral("Inhibit"), QStringLiteral("UnInhibit"), whoAndWhy,
                         Question{QStringLiteral("HasInhibit"), {}});
}

InhibitorService screenSaverService()
{
    const auto name = QStringLiteral("org.freedesktop.ScreenSaver");
    const Interface screenSaver{name, QStringLiteral("/org/freedesktop/ScreenSaver"), name};
    return cookieService(screenSaver, QStringLiteral("Inhibit"), QStringLiteral("UnInhibit"), whoAndWhy, std::nullopt);
}

InhibitorService portalService()
{
    const Interface portal{QStringLiteral("org.freedesktop.portal.Desktop"),
                           QStringLiteral("/org/freedesktop/portal/desktop"),
                           QStringLiteral("org.freedesktop.portal.Inhibit")};
    const auto request = [=](const QString& why) {
        const QVariantMap options{{QStringLiteral("reason"), why}};
        return call(portal, QStringLiteral("Inhibit"), {QString(), portalSuspend, options});
    };
    const auto lock = [service = portal.service](const QDBusConnection& bus, const QDBusMessage& reply) -> Cancellable {
        const auto handle = argumentOf<QDBusObjectPath>(reply);
        if (!handle)
            return {};
        const Interface held{service, handle->path(), QStringLiteral("org.freedesktop.portal.Request")};
        return Cancellable([=] { bus.send(call(held, QStringLiteral("Close"), {})); });
    };
    return {portal.service, InhibitorService::Restart::losesLock, request, lock, {}, {}};
}

} // namespace orrinvale
