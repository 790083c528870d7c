// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN
typedef NS_OPTIONS(NSUInteger, UNAuthorizationOptions) { UNAuthorizationOptionSound = 1 << 1, UNAuthorizationOptionAlert = 1 << 2 };
typedef NS_OPTIONS(NSUInteger, UNNotificationPresentationOptions) {
    UNNotificationPresentationOptionSound = 1 << 1, UNNotificationPresentationOptionBanner = 1 << 4
};
@class UNNotificationTrigger;
@interface UNNotification : NSObject
@end
@interface UNNotificationSound : NSObject
@property (class, readonly, copy) UNNotificationSound *defaultSound;
@end
@interface UNNotificationContent : NSObject
@end
@interface UNMutableNotificationContent : UNNotificationContent
@property (copy) NSString *title;
@property (copy) NSString *body;
@property (nullable, copy) UNNotificationSound *sound;
@end
@interface UNNotificationRequest : NSObject
+ (instancetype)requestWithIdentifier:(NSString *)identifier content:(UNNotificationContent *)content trigger:(nullable UNNotificationTrigger *)trigger;
@end
@class UNUserNotificationCenter;
@protocol UNUserNotificationCenterDelegate <NSObject>
@optional
- (void)userNotificationCenter:(UNUserNotificationCenter *)center willPresentNotification:(UNNotification *)notification withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))completionHandler;
@end
@interface UNUserNotificationCenter : NSObject
@property (nullable, weak) id<UNUserNotificationCenterDelegate> delegate;
+ (UNUserNotificationCenter *)currentNotificationCenter;
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options completionHandler:(void (^)(BOOL granted, NSError *_Nullable error))handler;
- (void)addNotificationRequest:(UNNotificationRequest *)request withCompletionHandler:(nullable void (^)(NSError *_Nullable error))handler;
- (void)removeDeliveredNotificationsWithIdentifiers:(NSArray<NSString *> *)identifiers;
@end
NS_ASSUME_NONNULL_END
