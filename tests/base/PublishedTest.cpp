// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Published.h"
#include "base/CombineLatest.h"
#include "platform/fake/VirtualTime.h"

#include <gtest/gtest.h>

#include <thread>

namespace orrinvale
{

namespace
{

struct PublishedTest : testing::Test {
    VirtualTime time;
    Published<int> value{1};
    std::vector<int> seen;
    std::function<void(const int&)> record = [this](const int& each) { seen.push_back(each); };
};

TEST_F(PublishedTest, PresentValueIsDeliveredOnSubscription)
{
    const auto token = value.observe(record);
    EXPECT_EQ(seen, (std::vector{1}));
}

TEST_F(PublishedTest, ChangesOnlySkipsThePresentValue)
{
    const auto token = value.observe(record, Deliver::changesOnly);
    value.set(2);
    EXPECT_EQ(seen, (std::vector{2}));
}

TEST_F(PublishedTest, EqualValuesAreAnnounced)
{
    const auto token = value.observe(record);
    value.set(1);
    EXPECT_EQ(seen, (std::vector{1, 1}));
}

TEST_F(PublishedTest, SynchronousObserverGetsTheNewValueWhileTheOwnerHoldsTheOld)
{
    std::vector<int> held;
    const auto token = value.observe([&](const int&) { held.push_back(value.get()); }, Deliver::changesOnly);
    value.set(2);
    EXPECT_EQ(held, (std::vector{1}));
    EXPECT_EQ(value.get(), 2);
}

TEST_F(PublishedTest, AfterStoreRunsOnceTheValueIsHeldAndAfterTheObservers)
{
    value.afterStore([&](const int&) { seen.push_back(100 + value.get()); });
    const auto token = value.observe(record, Deliver::changesOnly);
    value.set(2);
    EXPECT_EQ(seen, (std::vector{2, 102}));
}

TEST_F(PublishedTest, EachAnnouncedValueHasAHopOfItsOwn)
{
    const auto token = value.observeOn(time, record);
    value.set(2);
    value.set(3);
    EXPECT_TRUE(seen.empty());
    time.runPending();
    EXPECT_EQ(seen, (std::vector{1, 2, 3}));
}

TEST_F(PublishedTest, AfterTheHopTheOwnerHoldsTheStoredValue)
{
    std::vector<int> held;
    const auto token = value.observeOn(
        time, [&](const int&) { held.push_back(value.get()); }, Deliver::changesOnly);
    value.set(2);
    time.runPending();
    EXPECT_EQ(held, (std::vector{2}));
}

TEST_F(PublishedTest, QueuedHopOfADroppedTokenNeverRuns)
{
    auto token = value.observeOn(time, record);
    token.cancel();
    time.runPending();
    EXPECT_TRUE(seen.empty());
}

TEST_F(PublishedTest, ReplacingATokenEndsTheEarlierSubscription)
{
    auto token = value.observe(record, Deliver::changesOnly);
    token = value.observe([this](const int& each) { seen.push_back(10 * each); }, Deliver::changesOnly);
    value.set(2);
    EXPECT_EQ(seen, (std::vector{20}));
}

TEST_F(PublishedTest, HandlerMayDropItsOwnToken)
{
    Cancellable token;
    token = value.observe(
        [&](const int& each) {
            seen.push_back(each);
            token.cancel();
        },
        Deliver::changesOnly);
    value.set(2);
    value.set(3);
    EXPECT_EQ(seen, (std::vector{2}));
}

TEST_F(PublishedTest, QueuedHandlerMayDropItsOwnToken)
{
    Cancellable token;
    token = value.observeOn(time, [&](const int& each) {
        token.cancel();
        seen.push_back(each);
    });
    value.set(2);
    time.runPending();
    EXPECT_EQ(seen, (std::vector{1}));
}

TEST_F(PublishedTest, ObserverDroppedDuringARoundIsNotToldAnyMore)
{
    Cancellable second;
    const auto first = value.observe([&](const int&) { second.cancel(); }, Deliver::changesOnly);
    second = value.observe(record, Deliver::changesOnly);
    value.set(2);
    EXPECT_TRUE(seen.empty());
}

TEST_F(PublishedTest, ObserverAddedDuringARoundIsNotToldOfThatRound)
{
    Cancellables added;
    const auto first =
        value.observe([&](const int&) { added += value.observe(record, Deliver::changesOnly); }, Deliver::changesOnly);
    value.set(2);
    EXPECT_TRUE(seen.empty());
    value.set(3);
    EXPECT_EQ(seen, (std::vector{3}));
}

TEST_F(PublishedTest, ThePublisherMayDieFirst)
{
    Cancellable token;
    {
        Published<int> shortLived{7};
        token = shortLived.observeOn(time, record);
    }
    time.runPending();
    EXPECT_EQ(seen, (std::vector{7}));
    token.cancel();
}

TEST_F(PublishedTest, CombinedValuesArriveOnceAtFirstAndAgainForEachAnnouncement)
{
    Published<int> other{10};
    const auto token = combineLatest(
        time, [this](const int& a, const int& b) { seen.push_back(a + b); }, value, other);
    time.runPending();
    EXPECT_EQ(seen, (std::vector{11}));
    value.set(2);
    other.set(20);
    time.runPending();
    EXPECT_EQ(seen, (std::vector{11, 12, 22}));
}

TEST_F(PublishedTest, QueuedCombinedValueOfADroppedTokenNeverArrives)
{
    Published<int> other{10};
    auto token = combineLatest(
        time, [this](const int& a, const int& b) { seen.push_back(a + b); }, value, other);
    token.cancel();
    time.runPending();
    EXPECT_TRUE(seen.empty());
}

TEST(PublishedDeathTest, TouchingAValueAwayFromTheMainThreadIsFatal)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            Published<int> value{1};
            value.set(2);
            std::thread([&] { value.set(3); }).join();
        },
        "away from the main thread");
}

} // namespace

} // namespace orrinvale
