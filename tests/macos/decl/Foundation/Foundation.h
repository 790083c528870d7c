// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// What the adapters use of the system's framework, declared by hand from its public documentation.
#pragma once
#include <CoreFoundation/CoreFoundation.h>
#include <objc/NSObject.h>

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_ENUM(type, name) enum name : type name; enum name : type
#define NS_OPTIONS(type, name) type name; enum : type
#ifndef API_AVAILABLE
#define API_AVAILABLE(system)
#endif
typedef double NSTimeInterval;
typedef struct {
    unsigned long state;
    id __unsafe_unretained *itemsPtr;
    unsigned long *mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

NS_ASSUME_NONNULL_BEGIN
@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state objects:(id __unsafe_unretained [])buffer count:(NSUInteger)length;
@end
@interface NSString : NSObject
@property (nullable, readonly) const char *UTF8String;
+ (nullable instancetype)stringWithUTF8String:(const char *)text;
- (BOOL)isEqualToString:(NSString *)other;
@end
@interface NSDate : NSObject
@property (readonly) NSTimeInterval timeIntervalSinceReferenceDate;
@end
@interface NSURL : NSObject
@property (nullable, readonly, copy) NSString *path;
@end
@interface NSArray<__covariant Item> : NSObject <NSFastEnumeration>
+ (instancetype)arrayWithObjects:(const Item _Nonnull [_Nonnull])objects count:(NSUInteger)count;
@end
@interface NSMutableArray<Item> : NSArray<Item>
+ (instancetype)array;
- (void)addObject:(Item)object;
@end
@interface NSDictionary : NSObject
@end
@interface NSError : NSObject
@property (readonly, copy) NSString *localizedDescription;
@end
@interface NSBundle : NSObject
@property (class, readonly, strong) NSBundle *mainBundle;
@property (nullable, readonly, copy) NSString *bundleIdentifier;
+ (nullable instancetype)bundleWithPath:(NSString *)path;
- (nullable id)objectForInfoDictionaryKey:(NSString *)key;
@end
@interface NSOperationQueue : NSObject
@property (class, readonly, strong) NSOperationQueue *mainQueue;
@end
typedef NSString *NSNotificationName;
@interface NSNotification : NSObject
@end
extern NSNotificationName const NSSystemTimeZoneDidChangeNotification;
@interface NSNotificationCenter : NSObject
@property (class, readonly, strong) NSNotificationCenter *defaultCenter;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name object:(nullable id)object queue:(nullable NSOperationQueue *)queue usingBlock:(void (^)(NSNotification *note))block;
- (void)removeObserver:(id)observer;
@end
@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter *)defaultCenter;
- (void)postNotificationName:(NSNotificationName)name object:(nullable NSString *)object userInfo:(nullable NSDictionary *)info deliverImmediately:(BOOL)now;
@end
typedef NS_OPTIONS(NSUInteger, NSKeyValueObservingOptions) { NSKeyValueObservingOptionNew = 1 };
@interface NSObject (NSKeyValueObserving)
- (void)observeValueForKeyPath:(nullable NSString *)keyPath ofObject:(nullable id)object change:(nullable NSDictionary *)change context:(nullable void *)context;
- (void)addObserver:(NSObject *)observer forKeyPath:(NSString *)keyPath options:(NSKeyValueObservingOptions)options context:(nullable void *)context;
- (void)removeObserver:(NSObject *)observer forKeyPath:(NSString *)keyPath;
@end
typedef NS_OPTIONS(unsigned long long, NSActivityOptions) {
    NSActivityIdleSystemSleepDisabled = 1ULL << 20,
    NSActivityUserInitiated = 0x00FFFFFFULL | NSActivityIdleSystemSleepDisabled,
    NSActivityUserInitiatedAllowingIdleSystemSleep = NSActivityUserInitiated & ~NSActivityIdleSystemSleepDisabled
};
@interface NSProcessInfo : NSObject
@property (class, readonly, strong) NSProcessInfo *processInfo;
@property (readonly) int processIdentifier;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString *)reason;
- (void)endActivity:(id<NSObject>)activity;
@end
typedef UInt32 AEEventClass, AEEventID;
@interface NSAppleEventDescriptor : NSObject
@end
@interface NSAppleEventManager : NSObject
+ (NSAppleEventManager *)sharedAppleEventManager;
- (void)setEventHandler:(id)handler andSelector:(SEL)selector forEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@end
NS_ASSUME_NONNULL_END
