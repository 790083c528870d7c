// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MediaDevices.h"
#include "platform/linux/LinuxCamera.h"
#include "platform/linux/LinuxMicrophone.h"

namespace orrinvale
{

class LinuxMediaDevices final : public MediaDevices
{
public:
    LinuxMediaDevices(MainQueue& queue, SerialQueue& background) : m_camera(queue, background), m_microphone(queue) {}

    bool isCameraInUse() override { return m_camera.isInUse(); }
    bool isMicrophoneInUse() override { return m_microphone.isInUse(); }
    Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_camera.observeChanges(std::move(onChange)); // the microphone's answer is never behind
    }

private:
    LinuxCamera m_camera;
    LinuxMicrophone m_microphone;
};

} // namespace orrinvale
