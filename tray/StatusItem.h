// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "tray/StatusItemAnchor.h"

#include <QIcon>
#include <QObject>

#include <functional>
#include <memory>

class QDBusServiceWatcher;
class QSystemTrayIcon;

namespace orrinvale
{

class MainQueue;
class StatusNotifierItem;

// Our place in the desktop's tray, by the newer of the two protocols that the tray speaks. It is taken as soon as there
// is a tray, and taken again when the tray comes back. Left and right click are one and the same. Main thread.
class StatusItem final : public QObject
{
    Q_OBJECT

public:
    explicit StatusItem(MainQueue& queue);
    ~StatusItem() override;

    void setIcon(const QIcon& icon);
    // Plain text.
    void setToolTip(const QString& text);
    StatusItemAnchor anchor() const;
    QIcon icon() const { return m_icon; }
    QString toolTip() const { return m_toolTip; }

    std::function<void()> onClick;

private:
    void waitForTray();
    void askForTray();
    void embed();
    void showIcon();
    void showToolTip();
    void click();

private Q_SLOTS:
    void notifyTray();

private:
    QPoint m_click; // the last one, as the tray told
    MainQueue& m_queue;
    QIcon m_icon;
    QString m_toolTip;
    std::unique_ptr<QDBusServiceWatcher> m_trayWatcher;
    // One of the two, or none while there is no tray.
    std::unique_ptr<StatusNotifierItem> m_notifier;
    std::unique_ptr<QSystemTrayIcon> m_embedded;
    Cancellable m_patience;
};

} // namespace orrinvale
