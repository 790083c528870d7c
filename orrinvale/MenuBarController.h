// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "orrinvale/Popover.h"
#include "orrinvale/WakeMode.h"
#include "tray/StatusMenu.h"

#include <QObject>

#include <functional>
#include <memory>

namespace orrinvale
{

class AppSettings;
class StatusItem;
class StatusPopoverViewController;
class WakeEngine;
class WakeState;
struct Platform;

// Keeps the status item in step with the engine, and opens the popover from it. One a process. Main thread.
class MenuBarController final : public QObject
{
    Q_OBJECT

public:
    // What the popover's rows lead to.
    struct Destinations {
        std::function<void()> activityLog;
        std::function<void()> settings;
        std::function<void()> quit;
    };

    MenuBarController(WakeEngine& engine, AppSettings& settings, const Platform& platform, StatusItem& statusItem,
                      AvailableGeometry availableGeometry, Destinations destinations);
    ~MenuBarController() override;

    // Opens the popover, or closes it when it is shown.
    void handleClick();
    // Shows the popover although there may be no status item to open it from.
    void comeForward();

    // Null while no popover is shown.
    Popover* popover() const { return m_popover; }
    StatusPopoverViewController* popoverViewController() const { return m_popoverViewController; }

private:
    void drawIcon(const WakeState& state);
    void openPopover(const StatusItemAnchor& anchor);
    void closePopover();
    void wireRows();
    StatusMenu menu();
    std::function<void()> leadTo(const std::function<void()>& destination);
    void changeMode(WakeMode mode);
    void popoverClosed(Popover::Closing closing);
    void subscribe();

    WakeEngine& m_engine;
    AppSettings& m_settings;
    const Platform& m_platform;
    StatusItem& m_statusItem;
    AvailableGeometry m_availableGeometry;
    Destinations m_destinations;
    Popover* m_popover = nullptr;
    StatusPopoverViewController* m_popoverViewController = nullptr; // the popover's child
    Cancellable m_justClosed; // stands while a click may be the one that closed the popover
    Cancellables m_cancellables;
};

} // namespace orrinvale
