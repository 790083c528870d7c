// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#include <MacTypes.h>

typedef UInt32 AudioObjectID, AudioObjectPropertySelector, AudioObjectPropertyScope, AudioObjectPropertyElement;
typedef struct AudioObjectPropertyAddress {
    AudioObjectPropertySelector mSelector;
    AudioObjectPropertyScope mScope;
    AudioObjectPropertyElement mElement;
} AudioObjectPropertyAddress;
enum { kAudioObjectSystemObject = 1 };
enum {
    kAudioObjectPropertyScopeGlobal = 'glob',
    kAudioObjectPropertyScopeInput = 'inpt',
    kAudioObjectPropertyElementMain = 0,
    kAudioHardwarePropertyDevices = 'dev#',
    kAudioDevicePropertyStreams = 'stm#',
    kAudioDevicePropertyDeviceIsRunningSomewhere = 'gone'
};
#ifdef __cplusplus
extern "C" {
#endif
OSStatus AudioObjectGetPropertyDataSize(AudioObjectID object, const AudioObjectPropertyAddress* address,
                                        UInt32 qualifierSize, const void* qualifier, UInt32* size);
OSStatus AudioObjectGetPropertyData(AudioObjectID object, const AudioObjectPropertyAddress* address,
                                    UInt32 qualifierSize, const void* qualifier, UInt32* size, void* data);
#ifdef __cplusplus
}
#endif
