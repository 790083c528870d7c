// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MediaDevices.h"

namespace orrinvale
{

class FakeMediaDevices final : public MediaDevices
{
public:
    bool camera = false;
    bool microphone = false;
    int cameraQuestions = 0;
    int microphoneQuestions = 0;

    bool isCameraInUse() override
    {
        ++cameraQuestions;
        return camera;
    }
    bool isMicrophoneInUse() override
    {
        ++microphoneQuestions;
        return microphone;
    }
};

} // namespace orrinvale
