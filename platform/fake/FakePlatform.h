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

// A whole machine in virtual time, for a test to turn its knobs.
struct FakePlatform {
    VirtualTime time;
    std::unique_ptr<SerialQueue> background = time.make("background");
    std::unique_ptr<SerialQueue> applicationFiles = time.make("applicationfiles");
    FakeApplicationSupport applicationSupport;
    FakeAppearance appearance;
    FakeCPUCounters cpu;
    FakeFolderWatcher folders;
    FakeInstalledApplications installed;
    FakeLoginItem loginItem;
    FakeMediaDevices media;
    FakeNetworkCounters network;
    FakePowerAssertions power;
    FakePowerSources powerSources;
    FakeProcessStatus processStatus;
    FakeRunningApplications applications;
    FakeSessionEvents sessionEvents;
    FakeTimeZone timeZone;
    FakeUserDefaults defaults;
    FakeUserNotifications notifications;

    Platform platform()
    {
        return {time,       time,     *background,  *applicationFiles, time,         applicationSupport,
                appearance, cpu,      folders,      installed,         loginItem,    media,
                network,    power,    powerSources, processStatus,     applications, sessionEvents,
                timeZone,   defaults, notifications};
    }
};

} // namespace orrinvale
