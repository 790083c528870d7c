// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "platform/RunningApplications.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

struct WorkspaceApplication {
    RunningApplication application;
    std::optional<double> launched; // seconds since 2001
};

// What an application's bundle says of itself; texts are UTF-8.
struct BundleFacts {
    std::optional<std::string> identifier;
    std::optional<std::string> displayName; // in the user's language
    std::optional<std::string> name;
};

enum class WorkspaceEvent {
    applicationLaunched,
    applicationTerminated,
    screensSlept,
    screensWoke,
    sessionResigned,
    sessionActivated,
    timeZoneChanged
};

// What the system's workspace tells, as plain values. It decides nothing. Main thread, but for the bundles, of which
// any thread may ask.
class Workspace
{
public:
    virtual ~Workspace() = default;
    virtual std::vector<WorkspaceApplication> applications() = 0; // in no promised order
    // `onEvent` is called on the main thread.
    [[nodiscard]] virtual Cancellable observe(WorkspaceEvent event, std::function<void()> onEvent) = 0;
    virtual bool isDisplayAsleep() = 0;
    virtual bool isSessionOnConsole() = 0; // it is not while another user is switched in
    virtual std::optional<BundleFacts> bundle(const std::string& path) = 0; // nullopt: there is none
    virtual std::optional<std::string> pathOfApplication(const std::string& bundleIdentifier) = 0;
};

std::unique_ptr<Workspace> makeWorkspace();

} // namespace orrinvale
