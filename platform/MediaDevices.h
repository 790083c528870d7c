// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Asks whether a device is busy; never records or reads anything. Main thread.
class MediaDevices
{
public:
    virtual ~MediaDevices() = default;
    virtual bool isCameraInUse() = 0;
    virtual bool isMicrophoneInUse() = 0;
};

} // namespace orrinvale
