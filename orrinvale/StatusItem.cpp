// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/StatusItem.h"

#include "base/MainQueue.h"

#include <QCursor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QScreen>
#include <QSystemTrayIcon>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const auto trayService = QStringLiteral("org.kde.StatusNotifierWatcher");
constexpr auto patienceOnX11 = 1s; // after which the older protocol, whose tray may come at any time, is taken

bool isOnX11()
{
    return QGuiApplication::platformName() == QStringLiteral("xcb");
}

} // namespace

StatusItem::StatusItem(MainQueue& queue) : m_queue(queue)
{
    waitForTray();
}

StatusItem::~StatusItem() = default;

// The first QSystemTrayIcon decides for the process which protocol is spoken: it must not be made too early.
void StatusItem::waitForTray()
{
    const auto bus = QDBusConnection::sessionBus();
    m_trayWatcher = std::make_unique<QDBusServiceWatcher>(trayService, bus, QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(m_trayWatcher.get(), &QDBusServiceWatcher::serviceRegistered, this,
                     [this] { makeItem(Protocol::statusNotifier); });
    const auto ask =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(QDBusMessage(ask) << trayService), this);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (answer->reply().arguments().value(0).toBool())
            makeItem(Protocol::statusNotifier);
    });
    if (isOnX11())
        m_patience = m_queue.after(patienceOnX11, [this] { makeItem(Protocol::embedded); });
}

void StatusItem::makeItem(Protocol protocol)
{
    if (m_item)
        return;
    m_patience.cancel();
    m_protocol = protocol;
    m_item = std::make_unique<QSystemTrayIcon>();
    QObject::connect(m_item.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        const auto isClick = reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::Context;
        if (isClick && onClick)
            onClick();
    });
    show();
    m_item->show();
}

void StatusItem::setIcon(const QIcon& icon)
{
    m_icon = icon;
    show();
}

void StatusItem::setToolTip(const QString& text)
{
    m_toolTip = text;
    show();
}

// Either protocol's tooltip may be taken for markup: a tray's by its own rules, ours when it looks like it.
void StatusItem::show()
{
    if (!m_item)
        return;
    const auto escaped = m_toolTip.toHtmlEscaped();
    m_item->setIcon(m_icon);
    m_item->setToolTip(m_protocol == Protocol::embedded ? QStringLiteral("<qt>%1</qt>").arg(escaped) : escaped);
}

PopoverAnchor StatusItem::anchor() const
{
    PopoverAnchor anchor;
    if (!isOnX11())
        return anchor;
    anchor.pointer = QCursor::pos();
    const auto geometry = m_item ? m_item->geometry() : QRect();
    if (isPlausibleIcon(geometry, QGuiApplication::primaryScreen()->virtualGeometry()))
        anchor.icon = geometry;
    return anchor;
}

} // namespace orrinvale
