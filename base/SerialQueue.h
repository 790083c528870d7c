// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace orrinvale
{

// Runs work one piece after another away from the main thread. Work gets copies and touches nothing shared.
// Cancelling never blocks: work that already runs completes, work that has not started never runs.
class SerialQueue
{
public:
    virtual ~SerialQueue() = default;
    virtual void post(std::function<void()> work) = 0;
    [[nodiscard]] virtual Cancellable after(std::chrono::nanoseconds delay, std::function<void()> work) = 0;
};

// Makes queues by label; the application's queues are threads, a test's run in virtual time.
class SerialQueues
{
public:
    virtual ~SerialQueues() = default;
    virtual std::unique_ptr<SerialQueue> make(std::string label) = 0;
};

} // namespace orrinvale
