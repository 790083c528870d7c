// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacUserNotifications.h"

#include "platform/macos/Cocoa.h"

#import <UserNotifications/UserNotifications.h>

// Without it, nothing is shown while the application is the frontmost one.
@interface OrrinvaleNotificationDelegate : NSObject <UNUserNotificationCenterDelegate>
@end

@implementation OrrinvaleNotificationDelegate
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
       willPresentNotification:(UNNotification*)notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))completionHandler
{
    completionHandler(UNNotificationPresentationOptionBanner | UNNotificationPresentationOptionSound);
}
@end

namespace orrinvale
{

struct MacUserNotifications::Centre {
    OrrinvaleNotificationDelegate* delegate = [[OrrinvaleNotificationDelegate alloc] init]; // the centre keeps none
    UNUserNotificationCenter* centre = nil;
};

MacUserNotifications::MacUserNotifications() : m_centre(std::make_unique<Centre>())
{
    if (!NSBundle.mainBundle.bundleIdentifier)
        return; // the question for the centre would end the program
    m_centre->centre = [UNUserNotificationCenter currentNotificationCenter];
    m_centre->centre.delegate = m_centre->delegate;
}

MacUserNotifications::~MacUserNotifications() = default;

void MacUserNotifications::requestAuthorization()
{
    [m_centre->centre requestAuthorizationWithOptions:UNAuthorizationOptionAlert | UNAuthorizationOptionSound
                                    completionHandler:^(BOOL, NSError*){
                                    }];
}

void MacUserNotifications::post(const UserNotification& notification)
{
    UNMutableNotificationContent* content = [[UNMutableNotificationContent alloc] init];
    content.title = cocoaText(notification.title);
    content.body = cocoaText(notification.body);
    content.sound = UNNotificationSound.defaultSound;
    UNNotificationRequest* request = [UNNotificationRequest requestWithIdentifier:cocoaText(notification.identifier)
                                                                          content:content
                                                                          trigger:nil];
    [m_centre->centre addNotificationRequest:request withCompletionHandler:nil];
}

void MacUserNotifications::removeDelivered(const std::vector<std::string>& identifiers)
{
    NSMutableArray<NSString*>* texts = [NSMutableArray array];
    for (const auto& each : identifiers)
        [texts addObject:cocoaText(each)];
    [m_centre->centre removeDeliveredNotificationsWithIdentifiers:texts];
}

} // namespace orrinvale
