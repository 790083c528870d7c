// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Tells assistive technology what it cannot see for itself: the open popover, which Qt leaves out of the application's
// windows as it does menus, and the roles and parts of widgets of ours. To be called once, before anything is shown.
void installAccessibility();

} // namespace orrinvale
