// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/TrayItem.h"

#include "base/MainQueue.h"
#include "orrinvale/WakeEngine.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QPainter>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const auto trayService = QStringLiteral("org.kde.StatusNotifierWatcher");
constexpr auto patienceOnX11 = 1s; // after which the older protocol, whose tray may come at any time, is taken
constexpr auto litColour = QColor(74, 140, 56);
constexpr auto idleColour = QColor(140, 136, 130);

QIcon dot(const QColor& colour)
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 44, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        const auto margin = size * 0.18;
        painter.drawEllipse(QRectF(margin, margin, size - 2 * margin, size - 2 * margin));
        icon.addPixmap(pixmap);
    }
    return icon;
}

const char* labelOf(const WakeState& state)
{
    switch (state.kind()) {
    case WakeState::Case::awake:
        return "Awake";
    case WakeState::Case::cooldown:
        return "Cooling Down";
    case WakeState::Case::idle:
        break;
    }
    return "Idle";
}

} // namespace

TrayItem::TrayItem(MainQueue& queue) : m_queue(queue), m_status(m_menu.addAction(QString()))
{
    m_status->setEnabled(false);
    m_menu.addSeparator();
    QObject::connect(m_menu.addAction(QStringLiteral("Quit")), &QAction::triggered, qApp, &QCoreApplication::quit);
}

TrayItem::~TrayItem() = default;

void TrayItem::showStatusItem(WakeEngine& engine)
{
    m_engine = &engine;
    update(WakeState::idle());
    m_cancellables += engine.state.observeOn(m_queue, [this](const WakeState& state) { update(state); });
    waitForTray();
}

// The first QSystemTrayIcon decides for the process which protocol is spoken: it must not be made too early.
void TrayItem::waitForTray()
{
    const auto bus = QDBusConnection::sessionBus();
    m_trayWatcher = std::make_unique<QDBusServiceWatcher>(trayService, bus, QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(m_trayWatcher.get(), &QDBusServiceWatcher::serviceRegistered, this, [this] { makeIcon(); });
    const auto ask =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(QDBusMessage(ask) << trayService), this);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (answer->reply().arguments().value(0).toBool())
            makeIcon();
    });
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        m_cancellables += m_queue.after(patienceOnX11, [this] { makeIcon(); });
}

void TrayItem::makeIcon()
{
    if (m_icon)
        return;
    m_icon = std::make_unique<QSystemTrayIcon>();
    m_icon->setContextMenu(&m_menu);
    update(m_engine->state.get());
    m_icon->show();
}

void TrayItem::update(const WakeState& state)
{
    const auto text = QString::fromStdString(std::string(labelOf(state)) + ": " + state.statusText());
    // Neither place may take "&" or "<" for more than text.
    m_status->setText(QString(text).replace(QLatin1Char('&'), QStringLiteral("&&")));
    if (!m_icon)
        return;
    static const auto lit = dot(litColour);
    static const auto idle = dot(idleColour);
    m_icon->setIcon(state.isIdle() ? idle : lit);
    m_icon->setToolTip(text.toHtmlEscaped());
}

} // namespace orrinvale
