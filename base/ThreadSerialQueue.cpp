// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ThreadSerialQueue.h"

#include "base/BackgroundThread.h"

#include <condition_variable>
#include <map>
#include <mutex>

namespace orrinvale
{

namespace
{

using SteadyTime = std::chrono::steady_clock::time_point;
constexpr auto lingerTime = std::chrono::seconds(60);

} // namespace

struct ThreadSerialQueue::Shared : std::enable_shared_from_this<Shared> {
    using Key = std::pair<SteadyTime, std::uint64_t>;

    std::mutex mutex;
    std::condition_variable changed;
    std::map<Key, std::function<void()>> waiting;
    std::uint64_t lastId = 0;
    bool running = false;
    bool ended = false;
    MainQueue& retries;
    std::string label;

    Shared(MainQueue& queue, std::string name) : retries(queue), label(std::move(name)) {}

    Key add(std::chrono::nanoseconds delay, std::function<void()> work)
    {
        const std::lock_guard lock(mutex);
        const Key key{std::chrono::steady_clock::now() + delay, ++lastId};
        const auto place = waiting.emplace(key, std::move(work)).first;
        if (!running)
            startThread();
        else if (place == waiting.begin())
            changed.notify_one();
        return key;
    }

    void remove(const Key& key)
    {
        std::map<Key, std::function<void()>>::node_type dying;
        const std::lock_guard lock(mutex);
        dying = waiting.extract(key);
    }

    void startThread()
    {
        running = true;
        startBackgroundThread(retries, label, [self = shared_from_this()] { self->run(); });
    }

    void run()
    {
        std::unique_lock lock(mutex);
        while (!ended && waitForWork(lock))
            runFirst(lock);
        running = false;
    }

    // False when nothing came for so long that the thread should end.
    bool waitForWork(std::unique_lock<std::mutex>& lock)
    {
        while (!ended) {
            if (waiting.empty()) {
                if (changed.wait_for(lock, lingerTime) == std::cv_status::timeout && waiting.empty())
                    return false;
                continue;
            }
            const auto due = waiting.begin()->first.first;
            if (due <= std::chrono::steady_clock::now())
                return true;
            changed.wait_until(lock, due);
        }
        return false;
    }

    void runFirst(std::unique_lock<std::mutex>& lock)
    {
        auto node = waiting.extract(waiting.begin());
        lock.unlock();
        node.mapped()();
        node = {};
        lock.lock();
    }
};

// The last part of a dotted label is the telling one.
ThreadSerialQueue::ThreadSerialQueue(MainQueue& retries, std::string label)
    : m_shared(std::make_shared<Shared>(retries, label.substr(label.rfind('.') + 1)))
{
}

ThreadSerialQueue::~ThreadSerialQueue()
{
    std::map<Shared::Key, std::function<void()>> dying;
    const std::lock_guard lock(m_shared->mutex);
    m_shared->ended = true;
    dying.swap(m_shared->waiting);
    m_shared->changed.notify_all();
}

void ThreadSerialQueue::post(std::function<void()> work)
{
    m_shared->add(std::chrono::nanoseconds::zero(), std::move(work));
}

Cancellable ThreadSerialQueue::after(std::chrono::nanoseconds delay, std::function<void()> work)
{
    return Cancellable([weak = std::weak_ptr(m_shared), key = m_shared->add(delay, std::move(work))] {
        if (const auto shared = weak.lock())
            shared->remove(key);
    });
}

std::unique_ptr<SerialQueue> ThreadSerialQueues::make(std::string label)
{
    return std::make_unique<ThreadSerialQueue>(m_retries, std::move(label));
}

} // namespace orrinvale
