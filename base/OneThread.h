// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Fatal.h"

#include <string_view>
#include <thread>

namespace orrinvale
{

// A member of what belongs to one thread, whichever that is: the first that uses it.
class OneThread
{
public:
    // Ends a build without NDEBUG with `what` when it is called on another thread than before.
    void check([[maybe_unused]] std::string_view what)
    {
#ifndef NDEBUG
        if (m_thread == std::thread::id())
            m_thread = std::this_thread::get_id();
        else if (m_thread != std::this_thread::get_id())
            fatal(what);
#endif
    }

private:
    std::thread::id m_thread;
};

} // namespace orrinvale
