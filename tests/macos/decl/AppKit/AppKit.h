// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN
typedef NSString *NSAppearanceName;
extern NSAppearanceName const NSAppearanceNameAqua, NSAppearanceNameDarkAqua;
@interface NSAppearance : NSObject
+ (nullable NSAppearance *)appearanceNamed:(NSAppearanceName)name;
- (nullable NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName> *)names;
@end
typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular, NSApplicationActivationPolicyAccessory, NSApplicationActivationPolicyProhibited
};
@interface NSRunningApplication : NSObject
@property (nullable, readonly, copy) NSString *localizedName;
@property (nullable, readonly, copy) NSString *bundleIdentifier;
@property (nullable, readonly, copy) NSURL *bundleURL;
@property (nullable, readonly, copy) NSURL *executableURL;
@property (nullable, readonly, copy) NSDate *launchDate;
@property (readonly) int processIdentifier;
@property (readonly) NSApplicationActivationPolicy activationPolicy;
+ (NSArray<NSRunningApplication *> *)runningApplicationsWithBundleIdentifier:(NSString *)identifier;
@end
extern NSNotificationName const NSWorkspaceDidLaunchApplicationNotification, NSWorkspaceDidTerminateApplicationNotification;
extern NSNotificationName const NSWorkspaceScreensDidSleepNotification, NSWorkspaceScreensDidWakeNotification;
extern NSNotificationName const NSWorkspaceSessionDidResignActiveNotification, NSWorkspaceSessionDidBecomeActiveNotification;
@interface NSWorkspace : NSObject
@property (class, readonly, strong) NSWorkspace *sharedWorkspace;
@property (readonly, strong) NSNotificationCenter *notificationCenter;
@property (readonly, copy) NSArray<NSRunningApplication *> *runningApplications;
@property (readonly) BOOL accessibilityDisplayShouldReduceMotion;
- (nullable NSURL *)URLForApplicationWithBundleIdentifier:(NSString *)identifier;
@end
@interface NSApplication : NSObject
@property (class, readonly, strong) NSApplication *sharedApplication;
@property (nullable, strong) NSAppearance *appearance;
@property (readonly, strong) NSAppearance *effectiveAppearance;
- (void)activateIgnoringOtherApps:(BOOL)flag;
- (void)deactivate;
@end
NS_ASSUME_NONNULL_END
