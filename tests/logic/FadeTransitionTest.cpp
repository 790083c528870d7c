// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FadeTransition.h"

#include "platform/fake/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace orrinvale
{

namespace
{

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

struct FadeTransitionTest : testing::Test {
    void run(const std::string& name)
    {
        fade->run([this, name] { changes.push_back(name); });
    }

    VirtualTime time;
    std::vector<double> opacities;
    std::vector<std::string> changes;
    std::optional<FadeTransition> fade{std::in_place, time, [this](double opacity) { opacities.push_back(opacity); }};
};

TEST(TimingCurves, BeginAndEndWhereTheyShould)
{
    for (auto* curve : {easeIn, easeOut}) {
        EXPECT_EQ(curve(-0.5), 0);
        EXPECT_EQ(curve(0), 0);
        EXPECT_EQ(curve(1), 1);
        EXPECT_EQ(curve(1.5), 1);
    }
}

TEST(TimingCurves, EaseInStartsSlowlyAndEaseOutEndsSlowly)
{
    EXPECT_NEAR(easeIn(0.25), 0.0935, 0.001);
    EXPECT_NEAR(easeIn(0.5), 0.3154, 0.001);
    EXPECT_NEAR(easeIn(0.75), 0.6219, 0.001);
    EXPECT_NEAR(easeOut(0.25), 0.3781, 0.001);
    EXPECT_NEAR(easeOut(0.5), 0.6846, 0.001);
    EXPECT_NEAR(easeOut(0.75), 0.9065, 0.001);
}

TEST_F(FadeTransitionTest, NothingMovesBeforeTheFirstRun)
{
    time.advance(1s);
    EXPECT_THAT(opacities, IsEmpty());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(FadeTransitionTest, TheChangeComesWhenNothingIsVisibleAfter160Milliseconds)
{
    run("change");
    EXPECT_TRUE(fade->isRunning());
    time.advance(159ms);
    EXPECT_THAT(changes, IsEmpty());
    time.advance(1ms);
    EXPECT_THAT(changes, ElementsAre("change"));
    EXPECT_EQ(opacities.back(), 0);
}

TEST_F(FadeTransitionTest, FadingInTakes220MillisecondsMore)
{
    run("change");
    time.advance(379ms);
    EXPECT_TRUE(fade->isRunning());
    EXPECT_LT(opacities.back(), 1);
    time.advance(1ms);
    EXPECT_EQ(opacities.back(), 1);
    EXPECT_FALSE(fade->isRunning());
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(FadeTransitionTest, OpacityFallsByEaseInAndRisesByEaseOut)
{
    run("change");
    time.advance(80ms);
    EXPECT_NEAR(opacities.back(), 1 - easeIn(0.5), 1e-9);
    time.advance(80ms + 120ms);
    EXPECT_NEAR(opacities.back(), easeOut(120.0 / 220), 1e-9);
}

TEST_F(FadeTransitionTest, OpacityNeverLeavesItsRangeNorTurnsBack)
{
    run("change");
    time.advance(160ms);
    EXPECT_TRUE(std::is_sorted(opacities.rbegin(), opacities.rend()));
    opacities.clear();
    time.advance(1s);
    EXPECT_TRUE(std::is_sorted(opacities.begin(), opacities.end()));
    EXPECT_THAT(opacities, testing::Each(testing::AllOf(testing::Ge(0), testing::Le(1))));
}

TEST_F(FadeTransitionTest, ARunWhileFadingOutTakesOverAtTheOpacityReached)
{
    run("first");
    time.advance(100ms);
    const auto reached = opacities.back();
    run("second");
    time.advance(20ms);
    EXPECT_NEAR(opacities.back(), reached * (1 - easeIn(20.0 / 160)), 1e-9);
    time.advance(140ms);
    EXPECT_THAT(changes, ElementsAre("second")) << "the first one was never seen";
}

TEST_F(FadeTransitionTest, ARunWhileFadingInFadesOutAgainFromThere)
{
    run("first");
    time.advance(240ms);
    const auto reached = opacities.back();
    run("second");
    time.advance(20ms);
    EXPECT_LT(opacities.back(), reached);
    time.advance(140ms);
    EXPECT_THAT(changes, ElementsAre("first", "second"));
    time.advance(220ms);
    EXPECT_EQ(opacities.back(), 1);
    EXPECT_FALSE(fade->isRunning());
}

TEST_F(FadeTransitionTest, ARunInsideTheChangeIsNotLost)
{
    fade->run([this] {
        changes.push_back("outer");
        run("inner");
    });
    time.advance(1s);
    EXPECT_THAT(changes, ElementsAre("outer", "inner"));
    EXPECT_EQ(opacities.back(), 1);
}

TEST_F(FadeTransitionTest, NothingRunsAfterItsEnd)
{
    run("change");
    time.advance(100ms);
    fade.reset();
    const auto before = opacities.size();
    time.advance(1s);
    EXPECT_THAT(changes, IsEmpty());
    EXPECT_EQ(opacities.size(), before);
    EXPECT_EQ(time.timerCount(), 0u);
}

} // namespace

} // namespace orrinvale
