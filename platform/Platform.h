// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

class ApplicationSupport;
class Appearance;
class CPUCounters;
class Clock;
class FolderWatcher;
class InstalledApplications;
class LoginItem;
class MainQueue;
class MediaDevices;
class NetworkCounters;
class PowerAssertions;
class PowerSources;
class ProcessStatus;
class RunningApplications;
class SerialQueue;
class SerialQueues;
class SessionEvents;
class TimeZone;
class UserDefaults;
class UserNotifications;

// Everything that the operating system supplies, by reference. Only the composition root sees the whole set.
struct Platform {
    MainQueue& mainQueue;
    SerialQueues& serialQueues;
    SerialQueue& background;       // shared, utility priority
    SerialQueue& applicationFiles; // beside it, for the folders of applications: a mount that hangs holds up no more
    Clock& clock;
    ApplicationSupport& applicationSupport;
    Appearance& appearance;
    CPUCounters& cpuCounters;
    FolderWatcher& folderWatcher;
    InstalledApplications& installedApplications;
    LoginItem& loginItem;
    MediaDevices& mediaDevices;
    NetworkCounters& networkCounters;
    PowerAssertions& powerAssertions;
    PowerSources& powerSources;
    ProcessStatus& processStatus;
    RunningApplications& runningApplications;
    SessionEvents& sessionEvents;
    TimeZone& timeZone;
    UserDefaults& userDefaults;
    UserNotifications& userNotifications;
};

} // namespace orrinvale
