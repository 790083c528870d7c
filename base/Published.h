// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "base/MainQueue.h"
#include "base/MainThread.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orrinvale
{

enum class Deliver { presentAndChanges, changesOnly };

// An observable value. `set` announces the new value to every observer and then stores it, equal values too; a
// synchronous observer therefore still reads the old value from the owner, one behind a queue reads the new one.
// Main thread only. Observers may be added and dropped during a round, and may outlive the value.
template <typename T>
class Published
{
public:
    using Handler = std::function<void(const T&)>;

    Published() : Published(T{}) {}
    explicit Published(T initial) : m_value(std::move(initial)), m_observers(std::make_shared<Observers>()) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const T& get() const { return m_value; }

    void set(T value)
    {
        assertMainThread();
        const auto keptAlive = m_observers;
        keptAlive->announce(value);
        m_value = std::move(value);
        if (m_afterStore)
            m_afterStore(m_value);
    }

    // For the owner: `action` runs in each `set` once the value is stored.
    void afterStore(Handler action) { m_afterStore = std::move(action); }

    // Calls `handler` inside `set`, before the value is stored.
    [[nodiscard]] Cancellable observe(Handler handler, Deliver deliver = Deliver::presentAndChanges)
    {
        assertMainThread();
        if (deliver == Deliver::presentAndChanges)
            handler(m_value);
        return m_observers->add(std::move(handler));
    }

    // Hands each announced value to `handler` in a turn of `queue` of its own; none arrives once the token is dropped.
    [[nodiscard]] Cancellable observeOn(MainQueue& queue, Handler handler, Deliver deliver = Deliver::presentAndChanges)
    {
        auto shared = std::make_shared<Handler>(std::move(handler));
        auto token = observe(
            [&queue, weak = std::weak_ptr(shared)](const T& value) {
                queue.post([weak, value] {
                    if (const auto alive = weak.lock())
                        (*alive)(value);
                });
            },
            deliver);
        return Cancellable([owned = std::make_shared<Cancellable>(std::move(token)), shared]() mutable {
            owned->cancel();
            shared.reset();
        });
    }

private:
    struct Observer {
        Handler handler;
        bool dropped = false;
    };

    struct Observers : std::enable_shared_from_this<Observers> {
        std::vector<std::shared_ptr<Observer>> list;

        Cancellable add(Handler handler)
        {
            auto observer = std::make_shared<Observer>(Observer{std::move(handler)});
            list.push_back(observer);
            return Cancellable([weakList = this->weak_from_this(), weak = std::weak_ptr(observer)] {
                const auto dying = weak.lock();
                if (!dying)
                    return;
                dying->dropped = true;
                if (const auto observers = weakList.lock())
                    std::erase(observers->list, dying);
            });
        }

        void announce(const T& value)
        {
            if (list.empty())
                return;
            const auto round = list;
            for (const auto& observer : round) {
                if (!observer->dropped)
                    observer->handler(value);
            }
        }
    };

    T m_value;
    std::shared_ptr<Observers> m_observers;
    Handler m_afterStore;
};

} // namespace orrinvale
