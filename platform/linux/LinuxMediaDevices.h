// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MediaDevices.h"
#include "platform/linux/LinuxCamera.h"
#include "platform/linux/LinuxMicrophone.h"
#include "platform/linux/PipeWireCameras.h"

namespace orrinvale
{

class LinuxMediaDevices final : public MediaDevices
{
public:
    LinuxMediaDevices(MainQueue& queue, SerialQueue& background)
        : m_camera(queue, background), m_pipeWireCameras(queue), m_microphone(queue)
    {
    }

    bool isCameraInUse() override { return m_camera.isInUse() || m_pipeWireCameras.isAnyInUse(); }
    bool isMicrophoneInUse() override { return m_microphone.isInUse(); }
    Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_camera.observeChanges(std::move(onChange)); // the other answers are never behind
    }

private:
    LinuxCamera m_camera;
    PipeWireCameras m_pipeWireCameras;
    LinuxMicrophone m_microphone;
};

} // namespace orrinvale
