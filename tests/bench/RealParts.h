// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake/FakePlatform.h"

namespace orrinvale::bench
{

// The parts of a machine that a measurement takes from the real one; null: it stays made up.
struct RealParts {
    MainQueue* mainQueue = nullptr;
    SerialQueue* background = nullptr;
    InstalledApplications* installedApplications = nullptr;
    RunningApplications* runningApplications = nullptr;
    UserDefaults* userDefaults = nullptr;
};

inline Platform platformOf(FakePlatform& fake, const RealParts& real)
{
    const auto rest = fake.platform();
    return {real.mainQueue ? *real.mainQueue : rest.mainQueue,
            rest.serialQueues,
            real.background ? *real.background : rest.background,
            real.background ? *real.background : rest.applicationFiles,
            rest.clock,
            rest.applicationSupport,
            rest.appearance,
            rest.cpuCounters,
            rest.folderWatcher,
            real.installedApplications ? *real.installedApplications : rest.installedApplications,
            rest.loginItem,
            rest.mediaDevices,
            rest.networkCounters,
            rest.powerAssertions,
            rest.powerSources,
            rest.processStatus,
            real.runningApplications ? *real.runningApplications : rest.runningApplications,
            rest.sessionEvents,
            rest.timeZone,
            real.userDefaults ? *real.userDefaults : rest.userDefaults,
            rest.userNotifications};
}

} // namespace orrinvale::bench
