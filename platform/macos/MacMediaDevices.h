// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "base/Published.h"
#include "base/SerialQueue.h"
#include "platform/MediaDevices.h"

#include <memory>

namespace orrinvale
{

// Looks at the devices in the background when asked, and answers what the last look found. Main thread.
class MacMediaDevices final : public MediaDevices
{
public:
    struct Looks { // both run in the background
        std::function<bool()> camera;
        std::function<bool()> microphone;
    };
    MacMediaDevices(MainQueue& queue, SerialQueue& background, Looks looks);
    ~MacMediaDevices() override;

    bool isCameraInUse() override;
    bool isMicrophoneInUse() override;
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

private:
    struct Device;
    bool ask(const std::shared_ptr<Device>& device);

    MainQueue& m_queue;
    SerialQueue& m_background;
    std::shared_ptr<Device> m_camera, m_microphone;
    Published<int> m_changes;
};

} // namespace orrinvale
