// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/TimerQueue.h"
#include "platform/fake/VirtualTime.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

TEST(TimerQueue, FiresInTheOrderOfDeadlinesThenOfMaking)
{
    TimerQueue timers;
    std::string order;
    const auto a = timers.once(2s, [&] { order += 'a'; });
    const auto b = timers.once(1s, [&] { order += 'b'; });
    const auto c = timers.once(2s, [&] { order += 'c'; });
    while (timers.fireNext(2s)) {
    }
    EXPECT_EQ(order, "bac");
    EXPECT_EQ(timers.size(), 0u);
}

TEST(TimerQueue, DroppedTokenStopsItsTimer)
{
    TimerQueue timers;
    auto token = timers.repeat(1s, 1s, [] { FAIL(); });
    token.cancel();
    EXPECT_FALSE(timers.fireNext(5s));
    EXPECT_EQ(timers.nextDeadline(), std::nullopt);
}

TEST(TimerQueue, LateTimerFiresOnceForLostTimeAndKeepsItsPhase)
{
    TimerQueue timers;
    int fired = 0;
    const auto token = timers.repeat(5s, 5s, [&] { ++fired; });
    EXPECT_TRUE(timers.fireNext(17s));
    EXPECT_FALSE(timers.fireNext(17s));
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(timers.nextDeadline(), std::optional<TimerQueue::Time>(20s));
}

TEST(TimerQueue, TimerMayDropItsOwnTokenInsideItsTick)
{
    TimerQueue timers;
    int fired = 0;
    Cancellable token;
    token = timers.repeat(1s, 1s, [&] {
        token.cancel();
        ++fired;
    });
    while (timers.fireNext(10s)) {
    }
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(timers.size(), 0u);
}

TEST(TimerQueue, TimerMayReplaceItselfInsideItsTick)
{
    TimerQueue timers;
    std::string order;
    Cancellable token;
    token = timers.once(1s, [&] {
        order += '1';
        token = timers.once(2s, [&] { order += '2'; });
    });
    while (timers.fireNext(2s)) {
    }
    EXPECT_EQ(order, "12");
}

TEST(TimerQueue, TokenMayOutliveTheQueue)
{
    Cancellable token;
    {
        TimerQueue timers;
        token = timers.once(1s, [] {});
    }
    token.cancel();
}

TEST(VirtualTime, AdvanceRunsEachTimerAtItsOwnMoment)
{
    VirtualTime time;
    const auto start = time.now();
    std::vector<std::int64_t> moments;
    const auto token = time.every(
        3s, [&] { moments.push_back(std::chrono::duration_cast<std::chrono::seconds>(time.now() - start).count()); });
    time.advance(10s);
    EXPECT_EQ(moments, (std::vector<std::int64_t>{3, 6, 9}));
    EXPECT_EQ(time.now() - start, 10s);
}

TEST(VirtualTime, SleepingMachineMovesTheWallClockAlone)
{
    VirtualTime time;
    const auto start = time.now();
    int fired = 0;
    const auto token = time.every(5s, [&] { ++fired; });
    time.sleepMachineFor(1h);
    time.runPending();
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(time.now() - start, 1h);
    time.advance(5s);
    EXPECT_EQ(fired, 1);
}

TEST(VirtualTime, CountedDelayedWorkRunsOnlyAtTheEndAndPostedWorkAtOnce)
{
    VirtualTime time;
    time.countDelayedSerialWork();
    const auto queue = time.make("test");
    std::string ran;
    queue->after(300ms, [&] { ran += '1'; }).detach();
    queue->after(400ms, [&] { ran += '2'; }).detach();
    queue->post([&] { ran += 'p'; });
    time.advance(1s);
    EXPECT_EQ(time.serialWorkCounted(), 2u);
    EXPECT_EQ(ran, "p");
    time.runNewestCountedWork();
    EXPECT_EQ(ran, "p2");
}

void onAnotherThread(const std::function<void()>& work)
{
    std::thread(work).join();
}

TEST(TimerQueueDeathTest, ATimerTouchedOnAnotherThreadEndsTheProgram)
{
    constexpr auto complaint = "a timer was touched away from the thread of its queue";
    TimerQueue timers;
    auto token = timers.once(1s, [] {});
    EXPECT_DEATH(onAnotherThread([&] { token.cancel(); }), complaint);
    EXPECT_DEATH(onAnotherThread([&] { timers.fireNext(0s); }), complaint);
    EXPECT_DEATH(onAnotherThread([&] { token = timers.once(1s, [] {}); }), complaint);
}

} // namespace

} // namespace orrinvale
