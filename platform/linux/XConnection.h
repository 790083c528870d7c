// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace orrinvale
{

template <typename Reply>
using XReply = std::unique_ptr<Reply, decltype(&std::free)>;

// Qt's own connection to the X server; null elsewhere. Main thread, after the application object.
xcb_connection_t* xConnection();

// XCB_ATOM_NONE when no client has made it yet. One round trip.
xcb_atom_t xAtom(xcb_connection_t* connection, std::string_view name);

} // namespace orrinvale
