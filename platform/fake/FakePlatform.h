// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "platform/fake/FakeAppearance.h"
#include "platform/fake/FakeApplicationSupport.h"
#include "platform/fake/FakeCPUCounters.h"
#include "platform/fake/FakeFolderWatcher.h"
#include "platform/fake/FakeInstalledApplications.h"
#include "platform/fake/FakeLoginItem.h"
#include "platform/fake/FakeMediaDevices.h"
#include "platform/fake/FakeNetworkCounters.h"
#include "platform/fake/FakePowerAssertions.h"
#include "platform/fake/FakePowerSources.h"
#include "platform/fake/FakeProcessStatus.h"
#include "platform/fake/FakeRunningApplications.h"
#include "platform/fake/FakeSessionEvents.h"
#include "platform/fake/FakeTimeZone.h"
#include "platform/fake/FakeUserDefaults.h"
#include "platform/fake/FakeUserNotifications.h"
#include "platform/fake/VirtualTime.h"

namespace orrinvale
{

// A whole machine in virtual time, for a test to turn its knobs. One that derives from it and has a part of its own
// under the same name is a machine with that part: platformOf(machine).
struct FakePlatform {
    VirtualTime time;
    MainQueue& mainQueue = time;
    SerialQueues& serialQueues = time;
    Clock& clock = time;
    std::unique_ptr<SerialQueue> background = time.make("background");
    std::unique_ptr<SerialQueue> applicationFiles = time.make("applicationfiles");
    FakeApplicationSupport applicationSupport;
    FakeAppearance appearance;
    FakeCPUCounters cpuCounters;
    FakeFolderWatcher folderWatcher;
    FakeInstalledApplications installedApplications;
    FakeLoginItem loginItem;
    FakeMediaDevices mediaDevices;
    FakeNetworkCounters networkCounters;
    FakePowerAssertions powerAssertions;
    FakePowerSources powerSources;
    FakeProcessStatus processStatus;
    FakeRunningApplications runningApplications;
    FakeSessionEvents sessionEvents;
    FakeTimeZone timeZone;
    FakeUserDefaults userDefaults;
    FakeUserNotifications userNotifications;

    Platform platform() { return platformOf(*this); }
};

} // namespace orrinvale
