// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/Compositing.h"

#include "platform/linux/XConnection.h"

#include <QGuiApplication>

namespace orrinvale
{

// The selection is named in https://specifications.freedesktop.org/wm-spec/ under "Compositing Managers". The number in
// it is the screen's; desktops of today have one.
bool isCompositing()
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return false; // a program without windows
    auto* connection = xConnection();
    if (!connection)
        return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
    const auto selection = xAtom(connection, "_NET_WM_CM_S0");
    if (selection == XCB_ATOM_NONE)
        return false;
    const XReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr), &std::free);
    return owner && owner->owner != XCB_NONE;
}

} // namespace orrinvale
