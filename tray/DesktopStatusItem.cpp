// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/DesktopStatusItem.h"

#include "base/MainQueue.h"
#include "tray/StatusNotifierItem.h"
#include "tray/SystemStatusItem.h"

#include <QCursor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QScreen>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const auto tray = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto trayPath = QStringLiteral("/StatusNotifierWatcher");
// GNOME Shell, whose extension is the tray's service and shows no item without a menu. Others show the menu in place of
// passing a right click on, or take the mere name of one for a menu.
const auto trayThatWantsMenu = QStringLiteral("org.gnome.Shell");
constexpr auto patienceOnX11 = 1s; // after which the older protocol, whose tray may come at any time, is taken

bool isOnX11()
{
    return QGuiApplication::platformName() == QStringLiteral("xcb");
}

} // namespace

DesktopStatusItem::DesktopStatusItem(MainQueue& queue) : m_queue(queue)
{
    waitForTray();
}

DesktopStatusItem::~DesktopStatusItem() = default;

void DesktopStatusItem::waitForTray()
{
    auto bus = QDBusConnection::sessionBus();
    m_trayWatcher = std::make_unique<QDBusServiceWatcher>(tray, bus, QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(m_trayWatcher.get(), &QDBusServiceWatcher::serviceRegistered, this,
                     &DesktopStatusItem::askForTray);
    // Whoever sends it: to name the tray would wait for the bus to say who that is.
    bus.connect({}, trayPath, tray, QStringLiteral("StatusNotifierHostRegistered"), this,
                SLOT(trayIsThere(QDBusMessage)));
    askForTray();
    if (isOnX11())
        m_patience = m_queue.after(patienceOnX11, [this] { embedOnceTrayAnswers(); });
}

void DesktopStatusItem::ask(const QDBusMessage& question, std::function<void(const QDBusMessage&)> take)
{
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, take = std::move(take)] {
        answer->deleteLater();
        take(answer->reply());
    });
}

// Whether anything shows the items that the tray's service knows of.
void DesktopStatusItem::askForTray()
{
    auto question = QDBusMessage::createMethodCall(tray, trayPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                   QStringLiteral("Get"));
    question << tray << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    ask(question, [this](const QDBusMessage& answer) {
        if (answer.arguments().value(0).value<QDBusVariant>().variant().toBool())
            trayIsThere(answer);
    });
}

void DesktopStatusItem::trayIsThere(const QDBusMessage& fromTray)
{
    auto question =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
    question << trayThatWantsMenu;
    ask(question, [this, owner = fromTray.service()](const QDBusMessage& answer) {
        const auto isIt = answer.arguments().value(0).toString() == owner;
        comeToTray(isIt ? Clicks::openMenu : Clicks::arrive);
    });
}

void DesktopStatusItem::comeToTray(Clicks clicks)
{
    m_patience.cancel();
    m_embedded.reset();
    if (!m_notifier || m_clicks != clicks) {
        m_clicks = clicks;
        m_notifier.reset(); // the new one stands in the same place
        makeNotifier();
    }
    m_notifier->registerWithTray();
}

// Its entries lead to what the menu holds when they are chosen: its owner may have gone.
StatusMenu DesktopStatusItem::menuOfTheMoment()
{
    auto entries = menu();
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i].choose = [this, i] {
            if (i < menu().size())
                menu()[i].choose();
        };
    return entries;
}

void DesktopStatusItem::makeNotifier()
{
    const auto bus = QDBusConnection::sessionBus();
    if (m_clicks == Clicks::openMenu)
        m_notifier = std::make_unique<StatusNotifierItemWithMenu>(bus, menuOfTheMoment());
    else
        m_notifier = std::make_unique<StatusNotifierItem>(bus);
    m_notifier->onClick = [this](const QPoint& place) {
        m_click = place;
        click();
    };
    showIcon();
    showToolTip();
}

// Qt's own item, which speaks the older protocol where there is no tray of the newer one.
void DesktopStatusItem::embed()
{
    m_patience.cancel();
    m_embedded = std::make_unique<SystemStatusItem>(SystemStatusItem::ToolTip::markup);
    m_embedded->onClick = [this] { click(); };
    showIcon();
    showToolTip();
    m_embedded->show();
}

// Qt's own item begins by asking the newer tray's service and waits for it, half a minute where that hangs: first it
// has to answer us, or to be gone.
void DesktopStatusItem::embedOnceTrayAnswers()
{
    if (!QDBusConnection::sessionBus().isConnected())
        return embed(); // no call is ever answered then, not even by an error
    auto ping = QDBusMessage::createMethodCall(tray, trayPath, QStringLiteral("org.freedesktop.DBus.Peer"),
                                               QStringLiteral("Ping"));
    ping.setAutoStartService(false);
    ask(ping, [this](const QDBusMessage& answer) {
        if (m_notifier)
            return;
        const auto error = QDBusError(answer).type();
        if (error == QDBusError::NoReply || error == QDBusError::Timeout || error == QDBusError::TimedOut)
            m_patience = m_queue.after(patienceOnX11, [this] { embedOnceTrayAnswers(); });
        else
            embed();
    });
}

void DesktopStatusItem::forgetClick()
{
    StatusNotifierItem::forgetActivationToken();
}

void DesktopStatusItem::showIcon()
{
    if (m_notifier)
        m_notifier->setIcon(icon());
    if (m_embedded)
        m_embedded->setIcon(icon());
}

void DesktopStatusItem::showToolTip()
{
    if (m_notifier)
        m_notifier->setToolTip(toolTip());
    if (m_embedded)
        m_embedded->setToolTip(toolTip());
}

StatusItemAnchor DesktopStatusItem::anchor() const
{
    if (m_embedded)
        return m_embedded->anchor();
    StatusItemAnchor anchor;
    if (isOnX11())
        anchor.pointer = QCursor::pos();
    else if (isPlausibleClick(m_click, QGuiApplication::primaryScreen()->virtualGeometry()))
        anchor.pointer = m_click;
    return anchor;
}

std::unique_ptr<StatusItem> makeStatusItem(MainQueue& queue)
{
    return std::make_unique<DesktopStatusItem>(queue);
}

} // namespace orrinvale
