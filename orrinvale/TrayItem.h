// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "orrinvale/ApplicationInterface.h"

#include <QDBusServiceWatcher>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace orrinvale
{

class MainQueue;
class WakeState;

// The application's item in the tray: a dot that is lit while the machine is kept awake, the state in words, and a menu
// with Quit. It is made once there is a tray to be in, and comes back by itself with a new one. Main thread.
class TrayItem final : public QObject, public ApplicationInterface
{
    Q_OBJECT

public:
    explicit TrayItem(MainQueue& queue);
    ~TrayItem() override;

    void showStatusItem(WakeEngine& engine) override;

private:
    void waitForTray();
    void makeIcon();
    void update(const WakeState& state);

    MainQueue& m_queue;
    WakeEngine* m_engine = nullptr;
    QMenu m_menu;
    QAction* m_status;
    std::unique_ptr<QDBusServiceWatcher> m_trayWatcher;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    Cancellables m_cancellables;
};

} // namespace orrinvale
