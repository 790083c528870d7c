// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/MainThread.h"

#include "base/Fatal.h"

#include <thread>

namespace orrinvale
{

void assertMainThread()
{
    static const auto mainThread = std::this_thread::get_id();
    if (std::this_thread::get_id() != mainThread)
        fatal("a published value was touched away from the main thread");
}

} // namespace orrinvale
