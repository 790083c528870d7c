// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/Agent.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

@interface OrrinvaleReopenHandler : NSObject
@property(copy) void (^onReopen)(void);
@end

@implementation OrrinvaleReopenHandler
- (void)reopen:(NSAppleEventDescriptor*)event withReply:(NSAppleEventDescriptor*)reply
{
    self.onReopen();
}
@end

namespace orrinvale
{

namespace
{

NSNotificationName const comeForward = @"com.orrinvale.orrinvale.comeForward";

} // namespace

Cancellable stayResponsive()
{
    // The option without "AllowingIdleSystemSleep" would itself keep the machine awake.
    const auto options = NSActivityUserInitiatedAllowingIdleSystemSleep;
    const id activity = [NSProcessInfo.processInfo beginActivityWithOptions:options reason:@"Watches for activity"];
    return Cancellable([activity] { [NSProcessInfo.processInfo endActivity:activity]; });
}

void activateApplication()
{
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
}

void deactivateApplication()
{
    [NSApplication.sharedApplication deactivate];
}

bool handOverToOtherInstance()
{
    NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
    if (!identifier)
        return false;
    for (NSRunningApplication* each in [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier]) {
        if (each.processIdentifier == NSProcessInfo.processInfo.processIdentifier)
            continue;
        [NSDistributedNotificationCenter.defaultCenter postNotificationName:comeForward
                                                                     object:nil
                                                                   userInfo:nil
                                                         deliverImmediately:YES];
        return true;
    }
    return false;
}

Cancellable observeReopening(std::function<void()> onReopen)
{
    OrrinvaleReopenHandler* handler = [[OrrinvaleReopenHandler alloc] init];
    handler.onReopen = ^{
      onReopen();
    };
    NSAppleEventManager* events = NSAppleEventManager.sharedAppleEventManager;
    [events setEventHandler:handler
                andSelector:@selector(reopen:withReply:)
              forEventClass:kCoreEventClass
                 andEventID:kAEReopenApplication];
    NSDistributedNotificationCenter* centre = NSDistributedNotificationCenter.defaultCenter;
    const id observer = [centre addObserverForName:comeForward
                                            object:nil
                                             queue:NSOperationQueue.mainQueue
                                        usingBlock:^(NSNotification*) {
                                          onReopen();
                                        }];
    return Cancellable([events, handler, centre, observer] {
        [events removeEventHandlerForEventClass:kCoreEventClass andEventID:kAEReopenApplication];
        [centre removeObserver:observer];
        (void)handler; // the manager keeps none
    });
}

} // namespace orrinvale
