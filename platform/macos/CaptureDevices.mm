// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MediaHardware.h"

#import <AVFoundation/AVFoundation.h>

namespace orrinvale
{

namespace
{

API_AVAILABLE(macos(14.0)) bool isAnyCaptureDeviceInUse()
{
    NSArray<AVCaptureDeviceType>* kinds = @[
        AVCaptureDeviceTypeBuiltInWideAngleCamera, AVCaptureDeviceTypeExternal, AVCaptureDeviceTypeContinuityCamera,
        AVCaptureDeviceTypeDeskViewCamera
    ];
    AVCaptureDeviceDiscoverySession* session =
        [AVCaptureDeviceDiscoverySession discoverySessionWithDeviceTypes:kinds
                                                               mediaType:AVMediaTypeVideo
                                                                position:AVCaptureDevicePositionUnspecified];
    for (AVCaptureDevice* each in session.devices) {
        if (each.isInUseByAnotherApplication)
            return true;
    }
    return false;
}

} // namespace

bool isAnyCameraInUse()
{
    if (@available(macOS 14.0, *))
        return isAnyCaptureDeviceInUse();
    return isAnyUSBCameraActive();
}

} // namespace orrinvale
