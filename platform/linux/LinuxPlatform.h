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
#include "platform/linux/LinuxUserNotifications.h"
#include "platform/linux/SystemBus.h"
#include "platform/qt/QtMainQueue.h"

namespace orrinvale
{

// Every Linux adapter, made once on the main thread, after the application object.
class LinuxPlatform
{
public:
    struct Desktop {
        std::function<bool()> isPaletteDark;
        std::function<bool()> isComposited;
        std::function<void(std::optional<bool> isDark)> applyAppearance; // nullopt: as the desktop is
    };
    explicit LinuxPlatform(Desktop desktop);

    // Gives battery, appearance and running applications real values before the first decision; bounded.
    void prime();
    // Lets what was last said to the desktop leave the process; bounded.
    void flush();
    Platform platform();

private:
    SystemClock m_clock;
    QtMainQueue m_queue;
    ThreadSerialQueues m_serialQueues;
    ThreadSerialQueue m_background{"com.orrinvale.background"};
    ThreadSerialQueue m_applicationFiles{"com.orrinvale.applicationfiles"};
    QDBusConnection m_sessionBus;
    SystemBus m_systemBus{m_queue, m_background};
    LinuxApplicationSupport m_support;
    LinuxAppearance m_appearance;
    LinuxCPUCounters m_cpuCounters;
    LinuxFolderWatcher m_folderWatcher;
    LinuxInstalledApplications m_installedApplications;
    LinuxLoginItem m_loginItem;
    LinuxMediaDevices m_mediaDevices;
    LinuxNetworkCounters m_networkCounters;
    LinuxPowerAssertions m_powerAssertions;
    LinuxPowerSources m_powerSources;
    LinuxProcessStatus m_processStatus;
    LinuxRunningApplications m_runningApplications;
    LinuxSessionEvents m_sessionEvents;
    LinuxTimeZone m_timeZone;
    LinuxUserDefaults m_userDefaults;
    LinuxUserNotifications m_userNotifications;
    Cancellable m_systemBusRenewals;
};

} // namespace orrinvale
