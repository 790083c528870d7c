// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <wayland-client-protocol.h>

#include <functional>

namespace orrinvale
{

// Tells when the keyboard leaves the surface that has it, be it for a moment. Main thread.
class KeyboardWatch
{
public:
    // Never called where the seat has no keyboard. May delete the watch.
    explicit KeyboardWatch(std::function<void()> left);
    ~KeyboardWatch();
    KeyboardWatch(const KeyboardWatch&) = delete;
    KeyboardWatch& operator=(const KeyboardWatch&) = delete;

private:
    static const wl_keyboard_listener listener;

    std::function<void()> m_left;
    wl_keyboard* m_keyboard = nullptr;
};

} // namespace orrinvale
