// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/SerialQueue.h"

namespace orrinvale
{

// A serial queue on one thread of low priority, which starts with the first work and ends after a while without any.
// Destruction drops waiting work and does not wait for work that runs.
class ThreadSerialQueue final : public SerialQueue
{
public:
    explicit ThreadSerialQueue(std::string label);
    ~ThreadSerialQueue() override;

    void post(std::function<void()> work) override;
    [[nodiscard]] Cancellable after(std::chrono::nanoseconds delay, std::function<void()> work) override;

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
};

class ThreadSerialQueues final : public SerialQueues
{
public:
    std::unique_ptr<SerialQueue> make(std::string label) override;
};

} // namespace orrinvale
