// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "layer_shell/KeyboardWatch.h"

#include <QGuiApplication>
#include <qpa/qplatformnativeinterface.h>

#include <unistd.h>

namespace orrinvale
{

// The last entries are of versions that the seat may have.
const wl_keyboard_listener KeyboardWatch::listener{
    [](void*, wl_keyboard*, std::uint32_t, int keymap, std::uint32_t) { ::close(keymap); },
    [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
    [](void* data, wl_keyboard*, std::uint32_t, wl_surface*) {
        const auto left = static_cast<KeyboardWatch*>(data)->m_left; // which may delete this
        left();
    },
    [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    [](void*, wl_keyboard*, std::int32_t, std::int32_t) {}};

KeyboardWatch::KeyboardWatch(std::function<void()> left) : m_left(std::move(left))
{
    auto& native = *QGuiApplication::platformNativeInterface();
    auto* seat = static_cast<wl_seat*>(native.nativeResourceForIntegration("wl_seat"));
    // To ask a seat that never had one for a keyboard is an error that ends the connection.
    if (!seat || !native.nativeResourceForIntegration("wl_keyboard"))
        return;
    m_keyboard = wl_seat_get_keyboard(seat);
    wl_keyboard_add_listener(m_keyboard, &listener, this);
}

KeyboardWatch::~KeyboardWatch()
{
    if (!m_keyboard)
        return;
    if (wl_keyboard_get_version(m_keyboard) >= WL_KEYBOARD_RELEASE_SINCE_VERSION)
        wl_keyboard_release(m_keyboard);
    else
        wl_keyboard_destroy(m_keyboard);
}

} // namespace orrinvale
