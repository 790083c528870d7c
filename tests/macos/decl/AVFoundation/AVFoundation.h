// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN
typedef NSString *AVMediaType;
typedef NSString *AVCaptureDeviceType;
extern AVMediaType const AVMediaTypeVideo;
extern AVCaptureDeviceType const AVCaptureDeviceTypeBuiltInWideAngleCamera, AVCaptureDeviceTypeDeskViewCamera;
extern AVCaptureDeviceType const AVCaptureDeviceTypeExternal, AVCaptureDeviceTypeContinuityCamera API_AVAILABLE(macos(14.0));
typedef NS_ENUM(NSInteger, AVCaptureDevicePosition) { AVCaptureDevicePositionUnspecified = 0 };
@interface AVCaptureDevice : NSObject
@property (readonly, getter=isInUseByAnotherApplication) BOOL inUseByAnotherApplication;
@end
@interface AVCaptureDeviceDiscoverySession : NSObject
@property (readonly) NSArray<AVCaptureDevice *> *devices;
+ (instancetype)discoverySessionWithDeviceTypes:(NSArray<AVCaptureDeviceType> *)types mediaType:(nullable AVMediaType)mediaType position:(AVCaptureDevicePosition)position;
@end
NS_ASSUME_NONNULL_END
