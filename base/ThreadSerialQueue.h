// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/SerialQueue.h"

namespace orrinvale
{

class MainQueue;

// A serial queue on one thread, which starts with the first work and ends after a while without any. Work waits while
// the system refuses the thread. Destruction drops waiting work and does not wait for work that runs.
class ThreadSerialQueue final : public SerialQueue
{
public:
    // `retries` outlives the queue, and is where a refused thread is tried again.
    ThreadSerialQueue(MainQueue& retries, std::string label);
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
    explicit ThreadSerialQueues(MainQueue& retries) : m_retries(retries) {}
    std::unique_ptr<SerialQueue> make(std::string label) override;

private:
    MainQueue& m_retries;
};

} // namespace orrinvale
