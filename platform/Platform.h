// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

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

namespace detail
{

template <typename Part>
Part& partOf(Part& part)
{
    return part;
}
template <typename Part>
Part& partOf(std::unique_ptr<Part>& part)
{
    return *part;
}

} // namespace detail

// A machine of parts that bear the same names.
template <typename Parts>
Platform platformOf(Parts& parts)
{
    return {.mainQueue = detail::partOf(parts.mainQueue),
            .serialQueues = detail::partOf(parts.serialQueues),
            .background = detail::partOf(parts.background),
            .applicationFiles = detail::partOf(parts.applicationFiles),
            .clock = detail::partOf(parts.clock),
            .applicationSupport = detail::partOf(parts.applicationSupport),
            .appearance = detail::partOf(parts.appearance),
            .cpuCounters = detail::partOf(parts.cpuCounters),
            .folderWatcher = detail::partOf(parts.folderWatcher),
            .installedApplications = detail::partOf(parts.installedApplications),
            .loginItem = detail::partOf(parts.loginItem),
            .mediaDevices = detail::partOf(parts.mediaDevices),
            .networkCounters = detail::partOf(parts.networkCounters),
            .powerAssertions = detail::partOf(parts.powerAssertions),
            .powerSources = detail::partOf(parts.powerSources),
            .processStatus = detail::partOf(parts.processStatus),
            .runningApplications = detail::partOf(parts.runningApplications),
            .sessionEvents = detail::partOf(parts.sessionEvents),
            .timeZone = detail::partOf(parts.timeZone),
            .userDefaults = detail::partOf(parts.userDefaults),
            .userNotifications = detail::partOf(parts.userNotifications)};
}

} // namespace orrinvale
