// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/Workspace.h"

#include "platform/macos/CFObject.h"
#include "platform/macos/Cocoa.h"

#import <AppKit/AppKit.h>
#import <CoreGraphics/CoreGraphics.h>

namespace orrinvale
{

namespace
{

NSNotificationName nameOf(WorkspaceEvent event)
{
    switch (event) {
    case WorkspaceEvent::applicationLaunched:
        return NSWorkspaceDidLaunchApplicationNotification;
    case WorkspaceEvent::applicationTerminated:
        return NSWorkspaceDidTerminateApplicationNotification;
    case WorkspaceEvent::screensSlept:
        return NSWorkspaceScreensDidSleepNotification;
    case WorkspaceEvent::screensWoke:
        return NSWorkspaceScreensDidWakeNotification;
    case WorkspaceEvent::sessionResigned:
        return NSWorkspaceSessionDidResignActiveNotification;
    case WorkspaceEvent::sessionActivated:
        return NSWorkspaceSessionDidBecomeActiveNotification;
    case WorkspaceEvent::timeZoneChanged:
        return NSSystemTimeZoneDidChangeNotification;
    }
}

WorkspaceApplication plain(NSRunningApplication* application)
{
    const auto policy = application.activationPolicy == NSApplicationActivationPolicyRegular
                            ? ActivationPolicy::regular
                            : ActivationPolicy::accessory; // or one without any interface
    NSDate* launched = application.launchDate;
    return {{textOf(application.bundleIdentifier), textOf(application.localizedName),
             textOf(application.executableURL.path), policy, textOf(application.bundleURL.path)},
            launched ? std::optional<double>(launched.timeIntervalSinceReferenceDate) : std::nullopt};
}

class SystemWorkspace final : public Workspace
{
public:
    std::vector<WorkspaceApplication> applications() override
    {
        std::vector<WorkspaceApplication> all;
        for (NSRunningApplication* each in NSWorkspace.sharedWorkspace.runningApplications)
            all.push_back(plain(each));
        return all;
    }

    // The workspace's come from its own centre and no other.
    Cancellable observe(WorkspaceEvent event, std::function<void()> onEvent) override
    {
        NSNotificationCenter* centre = event == WorkspaceEvent::timeZoneChanged
                                           ? NSNotificationCenter.defaultCenter
                                           : NSWorkspace.sharedWorkspace.notificationCenter;
        const id observer = [centre addObserverForName:nameOf(event)
                                                object:nil
                                                 queue:NSOperationQueue.mainQueue
                                            usingBlock:^(NSNotification*) {
                                              onEvent();
                                            }];
        return Cancellable([centre, observer] { [centre removeObserver:observer]; });
    }

    bool isDisplayAsleep() override { return CGDisplayIsAsleep(CGMainDisplayID()) != 0; }

    bool isSessionOnConsole() override
    {
        const CFObject<CFDictionaryRef> session(CGSessionCopyCurrentDictionary());
        return !session || booleanOf(CFDictionaryGetValue(session.get(), kCGSessionOnConsoleKey)).value_or(true);
    }

    std::optional<BundleFacts> bundle(const std::string& path) override
    {
        NSBundle* bundle = [NSBundle bundleWithPath:cocoaText(path)];
        if (!bundle)
            return std::nullopt;
        return BundleFacts{textOf(bundle.bundleIdentifier),
                           textOf([bundle objectForInfoDictionaryKey:@"CFBundleDisplayName"]),
                           textOf([bundle objectForInfoDictionaryKey:@"CFBundleName"])};
    }

    std::optional<std::string> pathOfApplication(const std::string& bundleIdentifier) override
    {
        NSString* identifier = cocoaText(bundleIdentifier);
        return textOf([NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:identifier].path);
    }
};

} // namespace

std::unique_ptr<Workspace> makeWorkspace()
{
    return std::make_unique<SystemWorkspace>();
}

} // namespace orrinvale
