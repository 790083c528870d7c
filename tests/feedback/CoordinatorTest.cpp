// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/Coordinator.h"
#include "orrinvale/FeedbackState.h"
#include "platform/fake/VirtualTime.h"

#include <gtest/gtest.h>

namespace orrinvale
{

namespace
{

using namespace std::chrono_literals;
using Overlay = FeedbackState::Overlay;

struct CoordinatorTest : testing::Test {
    CoordinatorTest() { coordinator.startLoadTimeout(); }

    VirtualTime time;
    std::shared_ptr<FeedbackState> state = std::make_shared<FeedbackState>();
    Coordinator coordinator{state, time};
};

TEST_F(CoordinatorTest, AFreshStateIsLoading)
{
    EXPECT_TRUE(state->isLoading.get());
    EXPECT_FALSE(state->loadFailed.get());
    EXPECT_EQ(Overlay::loading, state->overlay());
}

TEST_F(CoordinatorTest, TheMessageEndsLoadingInATurnOfItsOwn)
{
    coordinator.receivedFormLoaded();
    EXPECT_TRUE(state->isLoading.get());
    time.runPending();
    EXPECT_FALSE(state->isLoading.get());
    EXPECT_FALSE(state->loadFailed.get());
    EXPECT_EQ(Overlay::none, state->overlay());
}

TEST_F(CoordinatorTest, TheMessageEndsTheTimeout)
{
    coordinator.receivedFormLoaded();
    time.advance(1h);
    EXPECT_EQ(Overlay::none, state->overlay());
    EXPECT_EQ(0U, time.timerCount());
}

TEST_F(CoordinatorTest, TwelveSecondsWithoutTheMessageAreAFailure)
{
    time.advance(11999ms);
    EXPECT_EQ(Overlay::loading, state->overlay());
    time.advance(1ms);
    EXPECT_FALSE(state->isLoading.get());
    EXPECT_TRUE(state->loadFailed.get());
    EXPECT_EQ(Overlay::failed, state->overlay());
}

TEST_F(CoordinatorTest, AMessageAfterTheTimeoutLeavesTheFailure)
{
    time.advance(12s);
    state->isLoading.set(true);
    coordinator.receivedFormLoaded();
    time.runPending();
    EXPECT_FALSE(state->isLoading.get());
    EXPECT_TRUE(state->loadFailed.get());
    EXPECT_EQ(Overlay::failed, state->overlay());
}

TEST_F(CoordinatorTest, ASecondMessageIsHarmless)
{
    coordinator.receivedFormLoaded();
    time.runPending();
    coordinator.receivedFormLoaded();
    time.advance(1min);
    EXPECT_EQ(Overlay::none, state->overlay());
}

TEST_F(CoordinatorTest, AFailedNavigationFailsAtOnceAndEndsTheTimeout)
{
    coordinator.navigationFailed();
    EXPECT_EQ(0U, time.timerCount());
    EXPECT_EQ(Overlay::loading, state->overlay());
    time.runPending();
    EXPECT_FALSE(state->isLoading.get());
    EXPECT_TRUE(state->loadFailed.get());
}

TEST_F(CoordinatorTest, TheLoadEventOfAnErrorPageLeavesTheFailure)
{
    coordinator.navigationFailed();
    coordinator.receivedFormLoaded();
    time.runPending();
    EXPECT_EQ(Overlay::failed, state->overlay());
}

TEST_F(CoordinatorTest, ALoadedFormThatNavigatesIntoAnErrorFails)
{
    coordinator.receivedFormLoaded();
    time.runPending();
    coordinator.navigationFailed();
    time.runPending();
    EXPECT_EQ(Overlay::failed, state->overlay());
}

TEST_F(CoordinatorTest, AStateThatStoppedLoadingOtherwiseDoesNotTimeOut)
{
    state->isLoading.set(false);
    time.advance(12s);
    EXPECT_FALSE(state->loadFailed.get());
}

TEST_F(CoordinatorTest, ASecondStartCountsAnew)
{
    time.advance(11s);
    coordinator.startLoadTimeout();
    time.advance(11s);
    EXPECT_EQ(Overlay::loading, state->overlay());
    time.advance(1s);
    EXPECT_EQ(Overlay::failed, state->overlay());
}

TEST_F(CoordinatorTest, AStateThatIsGoneIsLeftAlone)
{
    coordinator.receivedFormLoaded();
    state.reset();
    time.advance(12s);
    coordinator.navigationFailed();
    time.runPending();
}

TEST(FeedbackState, ACoordinatorThatIsGoneDoesNotTimeOut)
{
    VirtualTime time;
    const auto state = std::make_shared<FeedbackState>();
    {
        Coordinator coordinator(state, time);
        coordinator.startLoadTimeout();
    }
    time.advance(12s);
    EXPECT_EQ(Overlay::loading, state->overlay());
}

} // namespace

} // namespace orrinvale
