// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Whether something composes the windows of this session: always on Wayland, on X11 while a compositing manager owns
// its selection. One round trip to the X server; main thread, after the application object.
bool isCompositing();

} // namespace orrinvale
