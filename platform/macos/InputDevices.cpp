// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MediaHardware.h"

#include <vector>

#include <CoreAudio/CoreAudio.h>

namespace orrinvale
{

namespace
{

constexpr AudioObjectPropertyAddress allDevices{kAudioHardwarePropertyDevices, kAudioObjectPropertyScopeGlobal,
                                                kAudioObjectPropertyElementMain};
constexpr AudioObjectPropertyAddress inputStreams{kAudioDevicePropertyStreams, kAudioObjectPropertyScopeInput,
                                                  kAudioObjectPropertyElementMain};
constexpr AudioObjectPropertyAddress inputRuns{kAudioDevicePropertyDeviceIsRunningSomewhere,
                                               kAudioObjectPropertyScopeInput, kAudioObjectPropertyElementMain};

// In bytes; 0 when it cannot be had.
UInt32 sizeOf(AudioObjectID object, const AudioObjectPropertyAddress& property)
{
    UInt32 size = 0;
    return AudioObjectGetPropertyDataSize(object, &property, 0, nullptr, &size) == 0 ? size : 0;
}

std::vector<AudioObjectID> devices()
{
    std::vector<AudioObjectID> found(sizeOf(kAudioObjectSystemObject, allDevices) / sizeof(AudioObjectID));
    auto size = static_cast<UInt32>(found.size() * sizeof(AudioObjectID));
    if (found.empty() ||
        AudioObjectGetPropertyData(kAudioObjectSystemObject, &allDevices, 0, nullptr, &size, found.data()) != 0)
        return {};
    found.resize(size / sizeof(AudioObjectID)); // one may have gone meanwhile
    return found;
}

bool isInputRunning(AudioObjectID device)
{
    UInt32 isRunning = 0;
    UInt32 size = sizeof isRunning;
    return sizeOf(device, inputStreams) > 0 &&
           AudioObjectGetPropertyData(device, &inputRuns, 0, nullptr, &size, &isRunning) == 0 && isRunning != 0;
}

} // namespace

bool isAnyInputDeviceRunning()
{
    for (const auto device : devices()) {
        if (isInputRunning(device))
            return true;
    }
    return false;
}

} // namespace orrinvale
