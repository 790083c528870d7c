// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/Compositing.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace orrinvale
{

namespace
{

template <typename Reply>
using Answer = std::unique_ptr<Reply, decltype(&std::free)>;

} // namespace

// The selection is named in https://specifications.freedesktop.org/wm-spec/ under "Compositing Managers". The number in
// it is the screen's; desktops of today have one.
bool isCompositing()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Qt's offscreen platform has that interface too, without a connection behind it.
    auto* connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
    static constexpr char name[] = "_NET_WM_CM_S0";
    const Answer<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof name - 1, name), nullptr), &std::free);
    if (!atom)
        return false;
    const Answer<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr),
        &std::free);
    return owner && owner->owner != XCB_NONE;
}

} // namespace orrinvale
