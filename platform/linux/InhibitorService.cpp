// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/InhibitorService.h"

#include "platform/linux/DBus.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>

namespace orrinvale
{

namespace
{

// Constant: Plasma lets its users block an application by this name.
const auto who = QStringLiteral("orrinvale");

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

InhibitorService cookieService(const Interface& interface, const QString& take, const QString& release,
                               const std::function<QVariantList(const QString& why)>& arguments)
{
    const auto request = [=](const QString& why) { return call(interface, take, arguments(why)); };
    const auto lock = [=](const QDBusConnection& bus, const QDBusMessage& reply) -> Cancellable {
        const auto cookie = argumentOf<uint>(reply);
        if (!cookie)
            return {};
        return Cancellable([=] { bus.send(call(interface, release, {*cookie})); });
    };
    return {interface.service, InhibitorService::Restart::losesLock, request, lock};
}

QVariantList whoAndWhy(const QString& why)
{
    return {who, why};
}

} // namespace

// "idle" alone: "sleep" would refuse the user's own Suspend as well.
InhibitorService logindIdleService()
{
    const Interface manager{QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
                            QStringLiteral("org.freedesktop.login1.Manager")};
    const auto request = [=](const QString& why) {
        return call(manager, QStringLiteral("Inhibit"), {QStringLiteral("idle"), who, why, QStringLiteral("block")});
    };
    const auto lock = [](const QDBusConnection&, const QDBusMessage& reply) -> Cancellable {
        const auto descriptor = argumentOf<QDBusUnixFileDescriptor>(reply);
        if (!descriptor || !descriptor->isValid())
            return {};
        // The token owns the descriptor, and logind frees the lock when its last copy closes.
        return Cancellable([owned = *descriptor] {});
    };
    return {manager.service, InhibitorService::Restart::mayKeepLock, request, lock};
}

InhibitorService policyAgentService()
{
    const auto name = QStringLiteral("org.kde.Solid.PowerManagement.PolicyAgent");
    const Interface agent{name, QStringLiteral("/org/kde/Solid/PowerManagement/PolicyAgent"), name};
    return cookieService(agent, QStringLiteral("AddInhibition"), QStringLiteral("ReleaseInhibition"),
                         [](const QString& why) -> QVariantList {
                             return {policyInterruptSession, who, why};
                         });
}

InhibitorService sessionManagerService()
{
    const auto name = QStringLiteral("org.gnome.SessionManager");
    const Interface manager{name, QStringLiteral("/org/gnome/SessionManager"), name};
    constexpr uint noWindow = 0;
    return cookieService(manager, QStringLiteral("Inhibit"), QStringLiteral("Uninhibit"),
                         [](const QString& why) -> QVariantList {
                             return {who, noWindow, why, sessionManagerSuspend};
                         });
}

InhibitorService powerManagementService()
{
    const Interface inhibit{QStringLiteral("org.freedesktop.PowerManagement"),
                            QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"),
                            QStringLiteral("org.freedesktop.PowerManagement.Inhibit")};
    return cookieService(inhibit, QStringLiteral("Inhibit"), QStringLiteral("UnInhibit"), whoAndWhy);
}

InhibitorService screenSaverService()
{
    const auto name = QStringLiteral("org.freedesktop.ScreenSaver");
    const Interface screenSaver{name, QStringLiteral("/org/freedesktop/ScreenSaver"), name};
    return cookieService(screenSaver, QStringLiteral("Inhibit"), QStringLiteral("UnInhibit"), whoAndWhy);
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
    return {portal.service, InhibitorService::Restart::losesLock, request, lock};
}

} // namespace orrinvale
