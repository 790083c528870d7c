// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN
typedef NS_ENUM(NSInteger, SMAppServiceStatus) {
    SMAppServiceStatusNotRegistered, SMAppServiceStatusEnabled, SMAppServiceStatusRequiresApproval, SMAppServiceStatusNotFound
};
@interface SMAppService : NSObject
@property (class, readonly) SMAppService *mainAppService;
@property (readonly) SMAppServiceStatus status;
- (BOOL)registerAndReturnError:(NSError *__autoreleasing _Nullable *_Nullable)error;
- (BOOL)unregisterAndReturnError:(NSError *__autoreleasing _Nullable *_Nullable)error;
@end
NS_ASSUME_NONNULL_END
