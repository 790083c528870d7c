// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "tray/StatusItem.h"

#include <QObject>

class QDBusMessage;
class QDBusServiceWatcher;

namespace orrinvale
{

class StatusNotifierItem;
class SystemStatusItem;

// By the newer of the two protocols that the tray speaks. The place is taken as soon as there is a tray, and taken
// again when the tray comes back. GNOME's tray shows no item without a menu and opens that on every click: it gets one.
class DesktopStatusItem final : public QObject, public StatusItem
{
    Q_OBJECT

public:
    explicit DesktopStatusItem(MainQueue& queue);
    ~DesktopStatusItem() override;

    StatusItemAnchor anchor() const override;
    void forgetClick() override;

protected:
    void showIcon() override;
    void showToolTip() override;

private:
    enum class Clicks { arrive, openMenu };

    void waitForTray();
    void ask(const QDBusMessage& question, std::function<void(const QDBusMessage&)> take);
    void askForTray();
    void comeToTray(Clicks clicks);
    void makeNotifier();
    StatusMenu menuOfTheMoment();
    void embedOnceTrayAnswers();
    void embed();

private Q_SLOTS:
    void trayIsThere(const QDBusMessage& fromTray);

private:
    QPoint m_click; // the last one, as the tray told
    MainQueue& m_queue;
    std::unique_ptr<QDBusServiceWatcher> m_trayWatcher;
    Clicks m_clicks = Clicks::arrive; // what comes of them in the tray that we are in
    // One of the two, or none while there is no tray.
    std::unique_ptr<StatusNotifierItem> m_notifier;
    std::unique_ptr<SystemStatusItem> m_embedded;
    Cancellable m_patience;
};

} // namespace orrinvale
