// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppDelegate.h"
#include "orrinvale/WakeMode.h"
#include "orrinvale/WakeSignal.h"
#include "orrinvale/WakeState.h"

#include <gtest/gtest.h>

namespace orrinvale
{

namespace
{

TEST(WakeMode, RawValuesAndTheirOrder)
{
    EXPECT_EQ(rawValue(allWakeModes[0]), "Smart");
    EXPECT_EQ(rawValue(allWakeModes[1]), "Always Awake");
    EXPECT_EQ(rawValue(allWakeModes[2]), "Off");
    EXPECT_EQ(allWakeModes.size(), 3u);
}

TEST(WakeMode, AlwaysAwakeReadsAsManual)
{
    EXPECT_EQ(wakeModeFromRawValue("Always Awake"), WakeMode::manual);
}

TEST(WakeMode, AnyOtherTextGivesNoValue)
{
    for (const auto* text : {"always awake", "Manual", "Smart ", "smart", "", "OFF"})
        EXPECT_FALSE(wakeModeFromRawValue(text)) << text;
}

TEST(WakeState, StatusTexts)
{
    EXPECT_EQ(WakeState::cooldown(30).statusText(), "Going idle in 30s…");
    EXPECT_EQ(WakeState::cooldown(12).statusText(), "Going idle in 12s…");
    EXPECT_EQ(WakeState::awake("Manual mode — always awake").statusText(), "Manual mode — always awake");
    EXPECT_EQ(WakeState::idle().statusText(), "System may sleep normally");
}

TEST(WakeState, EqualWhenCaseAndPayloadAreEqual)
{
    EXPECT_EQ(WakeState::awake("a"), WakeState::awake("a"));
    EXPECT_NE(WakeState::awake("a"), WakeState::awake("b"));
    EXPECT_NE(WakeState::cooldown(5), WakeState::cooldown(4));
    EXPECT_NE(WakeState::idle(), WakeState::cooldown(0));
    EXPECT_EQ(WakeState::idle(), WakeState());
}

TEST(WakeState, CategoriesOneToOne)
{
    EXPECT_EQ(WakeState::awake("a").persistedCategory(), PersistedStateCategory::awake);
    EXPECT_EQ(WakeState::cooldown(1).persistedCategory(), PersistedStateCategory::cooldown);
    EXPECT_EQ(WakeState::idle().persistedCategory(), PersistedStateCategory::idle);
}

TEST(StateCategory, CooldownCountsAsIdle)
{
    EXPECT_EQ(AppDelegate::categoryOf(WakeState::cooldown(12)), AppDelegate::StateCategory::idle);
    EXPECT_EQ(AppDelegate::categoryOf(WakeState::idle()), AppDelegate::StateCategory::idle);
    EXPECT_EQ(AppDelegate::categoryOf(WakeState::awake("a")), AppDelegate::StateCategory::awake);
}

TEST(SignalSource, RawValuesReadBackToTheLetter)
{
    for (const auto* text : {"Download", "Network", "Process", "CPU", "Manual"}) {
        ASSERT_TRUE(signalSourceFromRawValue(text)) << text;
        EXPECT_EQ(rawValue(*signalSourceFromRawValue(text)), text);
    }
    EXPECT_FALSE(signalSourceFromRawValue("cpu"));
}

TEST(PersistedStateCategory, RawValuesReadBackToTheLetter)
{
    for (const auto* text : {"awake", "cooldown", "idle"}) {
        ASSERT_TRUE(persistedStateCategoryFromRawValue(text)) << text;
        EXPECT_EQ(rawValue(*persistedStateCategoryFromRawValue(text)), text);
    }
    EXPECT_FALSE(persistedStateCategoryFromRawValue("Awake"));
}

} // namespace

} // namespace orrinvale
