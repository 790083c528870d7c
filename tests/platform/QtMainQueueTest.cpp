// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/qt/QtMainQueue.h"

#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <thread>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

TEST(QtMainQueue, PostedWorkRunsLaterAndInOrder)
{
    QtMainQueue queue;
    std::string order;
    queue.post([&] { order += 'a'; });
    queue.post([&] { order += 'b'; });
    EXPECT_EQ(order, "");
    EXPECT_TRUE(waitFor([&] { return order == "ab"; }));
}

TEST(QtMainQueue, WorkFromAnotherThreadRunsOnTheMainThread)
{
    QtMainQueue queue;
    std::thread::id ranOn;
    std::thread([&] { queue.post([&] { ranOn = std::this_thread::get_id(); }); }).join();
    EXPECT_TRUE(waitFor([&] { return ranOn == std::this_thread::get_id(); }));
}

TEST(QtMainQueue, TimersKeepTheirPhase)
{
    QtMainQueue queue;
    const auto begin = std::chrono::steady_clock::now();
    std::vector<std::chrono::nanoseconds> moments;
    auto token = queue.every(20ms, [&] { moments.push_back(std::chrono::steady_clock::now() - begin); });
    ASSERT_TRUE(waitFor([&] { return moments.size() >= 10; }));
    for (std::size_t i = 0; i < moments.size(); ++i)
        EXPECT_GE(moments[i], 20ms * (i + 1));
    // Ten ticks that drifted by a millisecond each would be late by more than half an interval.
    EXPECT_LT(moments[9] % 20ms, 15ms);
}

TEST(QtMainQueue, LostTimeGivesOneTick)
{
    QtMainQueue queue;
    int fired = 0;
    auto token = queue.every(50ms, [&] { ++fired; });
    std::this_thread::sleep_for(225ms);
    ASSERT_TRUE(waitFor([&] { return fired > 0; }));
    EXPECT_EQ(fired, 1);
}

TEST(QtMainQueue, DroppedTimerNeverFires)
{
    QtMainQueue queue;
    auto token = queue.after(10ms, [] { FAIL(); });
    token.cancel();
    runEventsFor(40ms);
}

TEST(QtMainQueue, WorkMayPostWork)
{
    QtMainQueue queue;
    bool done = false;
    queue.post([&] { queue.post([&] { done = true; }); });
    EXPECT_TRUE(waitFor([&] { return done; }));
}

} // namespace

} // namespace orrinvale
