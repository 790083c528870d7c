// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
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
    void announceChange() { m_changes.set(m_changes.get() + 1); }
    Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
    }

private:
    Published<int> m_changes;
};

} // namespace orrinvale
