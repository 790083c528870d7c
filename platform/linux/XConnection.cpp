// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/XConnection.h"

#include <QGuiApplication>

namespace orrinvale
{

xcb_connection_t* xConnection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Qt's offscreen platform has that interface too, without a connection behind it.
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t xAtom(xcb_connection_t* connection, std::string_view name)
{
    const auto asked = xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data());
    const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace orrinvale
