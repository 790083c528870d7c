// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusItem.h"

#include "base/MainQueue.h"
#include "tray/StatusNotifierItem.h"

#include <QCursor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QScreen>
#include <QSystemTrayIcon>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const auto tray = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto trayPath = QStringLiteral("/StatusNotifierWatcher");
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

void StatusItem::waitForTray()
{
    auto bus = QDBusConnection::sessionBus();
    m_trayWatcher = std::make_unique<QDBusServiceWatcher>(tray, bus, QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(m_trayWatcher.get(), &QDBusServiceWatcher::serviceRegistered, this, &StatusItem::askForTray);
    // Whoever sends it: to name the tray would wait for the bus to say who that is.
    bus.connect({}, trayPath, tray, QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(notifyTray()));
    askForTray();
    if (isOnX11())
        m_patience = m_queue.after(patienceOnX11, [this] { embed(); });
}

// Whether anything shows the items that the tray's service knows of.
void StatusItem::askForTray()
{
    auto ask = QDBusMessage::createMethodCall(tray, trayPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                              QStringLiteral("Get"));
    ask << tray << QStringLiteral("IsStatusNotifierHostRegistered");
    ask.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(ask), this);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (answer->reply().arguments().value(0).value<QDBusVariant>().variant().toBool())
            notifyTray();
    });
}

void StatusItem::notifyTray()
{
    m_patience.cancel();
    m_embedded.reset();
    if (!m_notifier) {
        m_notifier = std::make_unique<StatusNotifierItem>(QDBusConnection::sessionBus());
        m_notifier->onClick = [this](const QPoint& place) {
            m_click = place;
            click();
        };
        showIcon();
        showToolTip();
    }
    m_notifier->registerWithTray();
}

// Qt's own item, which speaks the older protocol where there is no tray of the newer one.
void StatusItem::embed()
{
    m_patience.cancel();
    m_embedded = std::make_unique<QSystemTrayIcon>();
    QObject::connect(m_embedded.get(), &QSystemTrayIcon::activated, this,
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::Context)
                             click();
                     });
    showIcon();
    showToolTip();
    m_embedded->show();
}

void StatusItem::click()
{
    if (onClick)
        onClick();
}

void StatusItem::setIcon(const QIcon& icon)
{
    if (icon.cacheKey() == m_icon.cacheKey())
        return; // a countdown brings the same one every second
    m_icon = icon;
    showIcon();
}

void StatusItem::setToolTip(const QString& text)
{
    m_toolTip = text;
    showToolTip();
}

void StatusItem::showIcon()
{
    if (m_notifier)
        m_notifier->setIcon(m_icon);
    if (m_embedded)
        m_embedded->setIcon(m_icon);
}

void StatusItem::showToolTip()
{
    if (m_notifier)
        m_notifier->setToolTip(m_toolTip);
    if (m_embedded)
        m_embedded->setToolTip(QStringLiteral("<qt>%1</qt>").arg(m_toolTip.toHtmlEscaped())); // else it might be markup
}

StatusItemAnchor StatusItem::anchor() const
{
    const auto desktop = QGuiApplication::primaryScreen()->virtualGeometry();
    StatusItemAnchor anchor;
    if (isOnX11()) {
        anchor.pointer = QCursor::pos();
        const auto geometry = m_embedded ? m_embedded->geometry() : QRect();
        if (isPlausibleIcon(geometry, desktop))
            anchor.icon = geometry;
    } else if (isPlausibleClick(m_click, desktop)) {
        anchor.pointer = m_click;
    }
    return anchor;
}

} // namespace orrinvale
