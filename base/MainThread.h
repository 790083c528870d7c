// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Ends the program with a clear line when it is not called on the thread that first called it: the main thread.
// Published values and their handlers assert it.
void assertMainThread();

} // namespace orrinvale
