// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SleepGuard.h"

#include "platform/fake/FakePowerAssertions.h"

#include <gtest/gtest.h>

#include <optional>

namespace orrinvale
{

namespace
{

struct SleepGuardTest : testing::Test {
    FakePowerAssertions power;
    std::optional<SleepGuard> guard{std::in_place, power};
};

TEST_F(SleepGuardTest, AsksForTheNoIdleSleepTypeAtLevelOnUnderTheReason)
{
    guard->acquire("Downloading film.part");
    ASSERT_EQ(power.created.size(), 1u);
    EXPECT_EQ(power.created[0].type, "NoIdleSleepAssertion");
    EXPECT_EQ(power.created[0].level, 255u);
    EXPECT_EQ(power.created[0].name, "Downloading film.part");
    EXPECT_TRUE(guard->isHeld());
}

TEST_F(SleepGuardTest, SecondAcquireKeepsTheFirstReason)
{
    guard->acquire("a");
    guard->acquire("b");
    EXPECT_EQ(power.created.size(), 1u);
    EXPECT_EQ(power.held.begin()->second, "a");
}

TEST_F(SleepGuardTest, ReleaseWithoutAssertionMakesNoCall)
{
    guard->release();
    EXPECT_TRUE(power.released.empty());
}

TEST_F(SleepGuardTest, ReleaseForgetsTheIdentifier)
{
    guard->acquire("a");
    const auto id = guard->assertionID();
    guard->release();
    EXPECT_EQ(power.released, std::vector{id});
    EXPECT_EQ(guard->assertionID(), 0u);
    EXPECT_FALSE(guard->isHeld());
}

TEST_F(SleepGuardTest, AcquireAfterAFailedAttemptAsksAgain)
{
    power.status = -5;
    guard->acquire("a");
    EXPECT_FALSE(guard->isHeld());
    power.status = 0;
    guard->acquire("b");
    EXPECT_EQ(power.created.size(), 2u);
    EXPECT_TRUE(guard->isHeld());
    EXPECT_EQ(power.held.begin()->second, "b");
}

TEST_F(SleepGuardTest, FailureIsOneConsoleLineWithTheNegativeNumber)
{
    power.status = -536870212;
    testing::internal::CaptureStdout();
    guard->acquire("a");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "⚠️ SleepGuard: failed to acquire assertion (error -536870212)\n");
}

TEST_F(SleepGuardTest, DestroyingAHoldingGuardReleasesExactlyOnce)
{
    guard->acquire("a");
    guard.reset();
    EXPECT_EQ(power.released.size(), 1u);
}

TEST_F(SleepGuardTest, DestroyingAfterReleaseMakesNoCall)
{
    guard->acquire("a");
    guard->release();
    guard.reset();
    EXPECT_EQ(power.released.size(), 1u);
}

} // namespace

} // namespace orrinvale
