// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "base/ThreadSerialQueue.h"
#include "platform/Platform.h"
#include "platform/linux/LinuxAppearance.h"
#include "platform/linux/LinuxApplicationSupport.h"
#include "platform/linux/LinuxCPUCounters.h"
#include "platform/linux/LinuxFolderWatcher.h"
#include "platform/linux/LinuxInstalledApplications.h"
#include "platform/linux/LinuxLoginItem.h"
#include "platform/linux/LinuxMediaDevices.h"
#include "platform/linux/LinuxNetworkCounters.h"
#include "platform/linux/LinuxPowerAssertions.h"
#include "platform/linux/LinuxPowerSources.h"
#include "platform/linux/LinuxProcessStatus.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "platform/linux/LinuxSessionEvents.h"
#include "platform/linux/LinuxTimeZone.h"
#include "platform/linux/LinuxUserDefaults.h"
#include "platform/linux/LinuxUserLocale.h"
#include "platform/linux/LinuxUserNotifications.h"
#include "platform/linux/Panels.h"
#include "platform/linux/PortalFilePanels.h"
#include "platform/linux/SystemBus.h"
#include "platform/qt/QtMainQueue.h"

namespace orrinvale
{

// Every Linux adapter, made once on the main thread, after the application object.
class LinuxPlatform
{
public:
    // What only the toolkit's windows know and do.
    struct Windows {
        std::function<bool()> isPaletteDark;
        std::function<void(std::optional<bool> isDark)> applyAppearance; // nullopt: as the desktop is
        FilePanels& filePanels;                                          // for a desktop that has none of its own
    };
    explicit LinuxPlatform(const Windows& windows);

    // Gives battery, appearance and running applications real values before the first decision; bounded.
    void prime();
    // Lets what was last said to the desktop leave the process; bounded.
    void flush();
    Platform platform() { return platformOf(m_parts); }
    FilePanels& filePanels() { return m_filePanels; }
    const UserLocale& userLocale() const { return m_userLocale; }
    // The part of the screen where a window is not covered, in logical pixels.
    static QRect partWithoutPanels(const QScreen& screen) { return orrinvale::partWithoutPanels(screen); }

private:
    // Each under its name in Platform.
    struct Parts {
        explicit Parts(const Windows& windows);

        SystemClock clock;
        QtMainQueue mainQueue;
        ThreadSerialQueues serialQueues{mainQueue};
        ThreadSerialQueue background{mainQueue, "com.orrinvale.background"};
        ThreadSerialQueue applicationFiles{mainQueue, "com.orrinvale.applicationfiles"};
        QDBusConnection sessionBus = QDBusConnection::sessionBus();
        SystemBus systemBus{mainQueue, background};
        LinuxApplicationSupport applicationSupport;
        LinuxAppearance appearance;
        LinuxCPUCounters cpuCounters;
        LinuxFolderWatcher folderWatcher{mainQueue};
        LinuxInstalledApplications installedApplications;
        LinuxLoginItem loginItem;
        LinuxMediaDevices mediaDevices{mainQueue, background};
        LinuxNetworkCounters networkCounters;
        LinuxPowerAssertions powerAssertions{sessionBus, systemBus.connection(), mainQueue};
        LinuxPowerSources powerSources{systemBus.connection(), mainQueue, background};
        LinuxProcessStatus processStatus{mainQueue, background};
        LinuxRunningApplications runningApplications{mainQueue, background, applicationFiles};
        LinuxSessionEvents sessionEvents{sessionBus, systemBus.connection(), mainQueue, background};
        LinuxTimeZone timeZone{mainQueue};
        LinuxUserDefaults userDefaults;
        LinuxUserNotifications userNotifications;
        Cancellable systemBusRenewals;
    };

    Parts m_parts;
    PortalFilePanels m_filePanels;
    LinuxUserLocale m_userLocale;
};

} // namespace orrinvale
