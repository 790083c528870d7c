// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "base/ThreadSerialQueue.h"
#include "platform/Platform.h"
#include "platform/macos/MacAppearance.h"
#include "platform/macos/MacApplicationSupport.h"
#include "platform/macos/MacCPUCounters.h"
#include "platform/macos/MacFolderWatcher.h"
#include "platform/macos/MacInstalledApplications.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacMediaDevices.h"
#include "platform/macos/MacNetworkCounters.h"
#include "platform/macos/MacPowerAssertions.h"
#include "platform/macos/MacPowerSources.h"
#include "platform/macos/MacProcessStatus.h"
#include "platform/macos/MacRunningApplications.h"
#include "platform/macos/MacSessionEvents.h"
#include "platform/macos/MacTimeZone.h"
#include "platform/macos/MacUserDefaults.h"
#include "platform/macos/MacUserLocale.h"
#include "platform/macos/MacUserNotifications.h"
#include "platform/qt/QtMainQueue.h"

#include <QRect>

class QScreen;

namespace orrinvale
{

class FilePanels;

// Every macOS adapter, made once on the main thread, after the application object.
class MacPlatform
{
public:
    struct Windows {
        std::function<bool()> isPaletteDark;                             // not asked: the palette follows the system
        std::function<void(std::optional<bool> isDark)> applyAppearance; // the same
        FilePanels& filePanels;                                          // of Qt, which are the system's own here
    };
    explicit MacPlatform(const Windows& windows);

    // Every adapter has real values from its making on, and what is said leaves the process at once.
    void prime() {}
    void flush() {}
    Platform platform() { return platformOf(m_parts); }
    FilePanels& filePanels() { return m_filePanels; }
    const UserLocale& userLocale() const { return m_userLocale; }
    static QRect partWithoutPanels(const QScreen& screen);

private:
    // Each under its name in Platform.
    struct Parts {
        Parts();

        SystemClock clock;
        QtMainQueue mainQueue;
        ThreadSerialQueues serialQueues{mainQueue};
        ThreadSerialQueue background{mainQueue, "com.orrinvale.background"};
        ThreadSerialQueue applicationFiles{mainQueue, "com.orrinvale.applicationfiles"};
        std::unique_ptr<Workspace> workspace = makeWorkspace();
        std::unique_ptr<LoginService> loginService = makeLoginService();
        MacApplicationSupport applicationSupport;
        MacAppearance appearance{mainQueue};
        MacCPUCounters cpuCounters;
        MacFolderWatcher folderWatcher;
        MacInstalledApplications installedApplications{*workspace, applicationSupport.homeDirectory()};
        MacLoginItem loginItem{*loginService};
        MacMediaDevices mediaDevices;
        MacNetworkCounters networkCounters;
        MacPowerAssertions powerAssertions;
        MacPowerSources powerSources;
        MacProcessStatus processStatus{mainQueue};
        MacRunningApplications runningApplications{*workspace, mainQueue};
        MacSessionEvents sessionEvents{*workspace, mainQueue};
        MacTimeZone timeZone{*workspace, mainQueue};
        MacUserDefaults userDefaults;
        MacUserNotifications userNotifications;
        Cancellable responsiveness;
    };

    Parts m_parts;
    FilePanels& m_filePanels;
    MacUserLocale m_userLocale;
};

} // namespace orrinvale
