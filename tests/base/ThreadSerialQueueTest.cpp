// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ThreadSerialQueue.h"

#include "platform/fake/VirtualTime.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

TEST(ThreadSerialQueue, RunsWorkInOrderAwayFromTheCaller)
{
    VirtualTime time;
    ThreadSerialQueue queue(time, "com.orrinvale.test");
    std::string order;
    std::promise<std::thread::id> done;
    queue.post([&] { order += 'a'; });
    queue.post([&] { order += 'b'; });
    queue.post([&] { done.set_value(std::this_thread::get_id()); });
    EXPECT_TRUE(done.get_future().get() != std::this_thread::get_id());
    EXPECT_EQ(order, "ab");
}

TEST(ThreadSerialQueue, DelayedWorkWaitsAndEarlierWorkOvertakesIt)
{
    VirtualTime time;
    ThreadSerialQueue queue(time, "test");
    std::string order;
    std::promise<void> done;
    const auto begin = std::chrono::steady_clock::now();
    const auto token = queue.after(50ms, [&] {
        order += 'l';
        done.set_value();
    });
    queue.post([&] { order += 'e'; });
    done.get_future().wait();
    EXPECT_EQ(order, "el");
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 50ms);
}

TEST(ThreadSerialQueue, CancelledWorkNeverRuns)
{
    VirtualTime time;
    ThreadSerialQueue queue(time, "test");
    std::atomic<bool> ran = false;
    auto token = queue.after(20ms, [&] { ran = true; });
    token.cancel();
    std::promise<void> done;
    const auto later = queue.after(40ms, [&] { done.set_value(); });
    done.get_future().wait();
    EXPECT_FALSE(ran);
}

TEST(ThreadSerialQueue, DroppingTheTokenOfRunningWorkDoesNotBlockAndTheWorkCompletes)
{
    VirtualTime time;
    ThreadSerialQueue queue(time, "test");
    std::promise<void> started, release, done;
    auto token = queue.after(0s, [&] {
        started.set_value();
        release.get_future().wait();
        done.set_value();
    });
    started.get_future().wait();
    token.cancel(); // would wait for ever if it blocked
    release.set_value();
    done.get_future().wait();
}

TEST(ThreadSerialQueue, DestructionDropsWaitingWorkAndDoesNotWaitForRunningWork)
{
    const auto release = std::make_shared<std::promise<void>>();
    const auto done = std::make_shared<std::promise<void>>();
    std::promise<void> started;
    const auto waitingRan = std::make_shared<std::atomic<bool>>(false);
    {
        VirtualTime time;
        ThreadSerialQueue queue(time, "test");
        queue.post([&started, release, done] {
            started.set_value();
            release->get_future().wait();
            done->set_value();
        });
        queue.post([waitingRan] { *waitingRan = true; });
        started.get_future().wait();
    } // returns although the first work is still running
    release->set_value();
    done->get_future().wait();
    EXPECT_FALSE(*waitingRan);
}

} // namespace

} // namespace orrinvale
