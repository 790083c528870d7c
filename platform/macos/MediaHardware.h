// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Each asks the system whether a device is busy and opens none; may take 100 ms. Any thread.

// Whether another application uses a camera.
bool isAnyCameraInUse();
// The same by the registry entry of the system's driver for USB cameras, as systems before 14 have it.
bool isAnyUSBCameraActive();
// Whether anybody uses a device that has an input, which a headset that only plays also is.
bool isAnyInputDeviceRunning();

} // namespace orrinvale
