// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <chrono>
#include <functional>

namespace orrinvale
{

// The main thread's queue: an asynchronous hop, and timers on the monotonic clock that does not count suspended time.
// Repeating timers keep their phase and never fire twice for lost time. Timers are made on the main thread only.
class MainQueue
{
public:
    virtual ~MainQueue() = default;

    // Runs `work` on the main thread in a later turn, in the order of posting. Any thread may call it.
    virtual void post(std::function<void()> work) = 0;
    [[nodiscard]] virtual Cancellable after(std::chrono::nanoseconds delay, std::function<void()> work) = 0;
    [[nodiscard]] virtual Cancellable every(std::chrono::nanoseconds interval, std::function<void()> work) = 0;
};

} // namespace orrinvale
