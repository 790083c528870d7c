// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// How a window is coloured: one column of its palette.
enum class Look { light, dark, sakura };

} // namespace orrinvale
