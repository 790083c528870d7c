// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <functional>

namespace orrinvale
{

// Asks whether a device is busy; never records or reads anything. Main thread.
class MediaDevices
{
public:
    virtual ~MediaDevices() = default;
    virtual bool isCameraInUse() = 0;
    virtual bool isMicrophoneInUse() = 0;
    // Called in a turn of its own after what a question had looked up in the background differs from its answer.
    [[nodiscard]] virtual Cancellable observeChanges(std::function<void()> onChange) = 0;
};

} // namespace orrinvale
