// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacMediaDevices.h"

#include <utility>

namespace orrinvale
{

struct MacMediaDevices::Device {
    std::function<bool()> look;
    bool isInUse = false;
    bool isLooking = false;
};

MacMediaDevices::MacMediaDevices(MainQueue& queue, SerialQueue& background, Looks looks)
    : m_queue(queue), m_background(background), m_camera(std::make_shared<Device>()),
      m_microphone(std::make_shared<Device>())
{
    m_camera->look = std::move(looks.camera);
    m_microphone->look = std::move(looks.microphone);
}

MacMediaDevices::~MacMediaDevices() = default;

bool MacMediaDevices::ask(const std::shared_ptr<Device>& device)
{
    if (std::exchange(device->isLooking, true))
        return device->isInUse;
    m_background.post([this, &queue = m_queue, look = device->look, weak = std::weak_ptr(device)] {
        queue.post([this, weak, found = look()] {
            const auto asked = weak.lock(); // as long as this object lives
            if (!asked)
                return;
            asked->isLooking = false;
            if (std::exchange(asked->isInUse, found) != found)
                m_changes.set(m_changes.get() + 1);
        });
    });
    return device->isInUse;
}

bool MacMediaDevices::isCameraInUse()
{
    return ask(m_camera);
}

bool MacMediaDevices::isMicrophoneInUse()
{
    return ask(m_microphone);
}

Cancellable MacMediaDevices::observeChanges(std::function<void()> onChange)
{
    return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
}

} // namespace orrinvale
