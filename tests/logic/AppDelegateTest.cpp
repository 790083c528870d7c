// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppDelegate.h"

#include "orrinvale/ApplicationInterface.h"
#include "orrinvale/WakeEngine.h"
#include "tests/logic/LogicFixture.h"

namespace orrinvale
{

namespace
{

struct RecordingInterface final : ApplicationInterface {
    int items = 0;
    int onboardings = 0;
    void showOnboarding() override { ++onboardings; }
    void showStatusItem(WakeEngine& engine) override
    {
        ++items;
        EXPECT_EQ(engine.state.get(), WakeState::idle());
    }
};

struct AppDelegateTest : LogicFixture {
    AppDelegateTest() { fake.applicationSupport.support = support.path; }

    void launch()
    {
        delegate.emplace(platform(), settings(), calendar, interface);
        delegate->applicationDidFinishLaunching();
        time.runPending();
    }
    void choose(WakeMode mode)
    {
        delegate->wakeEngine().mode.set(mode);
        delegate->wakeEngine().evaluate();
        time.runPending();
    }
    void wakeFor(const std::string& label)
    {
        fake.applications.list.clear();
        fake.applications.run("org.example.App", "App");
        settings().customProcesses.set({{UUID::random(), "org.example.App", label, 3}});
        time.runPending();
    }

    TemporaryFolder support;
    RecordingInterface interface;
    std::optional<AppDelegate> delegate;
};

TEST_F(AppDelegateTest, TheLaunchAsksForAuthorizationAppliesTheThemeAndShowsTheItem)
{
    launch();
    EXPECT_EQ(fake.notifications.authorizationRequests, 1);
    EXPECT_THAT(fake.appearance.applied, ElementsAre(AppearanceChoice::Light));
    EXPECT_EQ(interface.items, 1);
    EXPECT_THAT(fake.notifications.calls, IsEmpty());
}

TEST_F(AppDelegateTest, BecomingAwakePostsTheReason)
{
    launch();
    wakeFor("Rendering");
    ASSERT_EQ(fake.notifications.posted.size(), 1u);
    EXPECT_EQ(fake.notifications.posted[0].identifier, "orrinvale.active");
    EXPECT_EQ(fake.notifications.posted[0].title, "orrinvale Active");
    EXPECT_EQ(fake.notifications.posted[0].body, "Rendering");
}

TEST_F(AppDelegateTest, AnotherReasonPostsNothing)
{
    launch();
    wakeFor("a");
    wakeFor("b");
    EXPECT_EQ(fake.notifications.posted.size(), 1u);
}

TEST_F(AppDelegateTest, TheCooldownPostsOneInactiveNotificationAtItsStart)
{
    launch();
    wakeFor("a");
    settings().customProcesses.set({});
    time.runPending();
    EXPECT_THAT(fake.notifications.calls,
                ElementsAre("post orrinvale.active", "remove orrinvale.active", "post orrinvale.idle"));
    EXPECT_EQ(fake.notifications.posted[1].title, "orrinvale Inactive");
    EXPECT_EQ(fake.notifications.posted[1].body, "Mac is allowed to sleep again");
    time.advance(60s);
    EXPECT_EQ(fake.notifications.calls.size(), 3u);
}

TEST_F(AppDelegateTest, SwitchedOffNotificationsStillRemoveAndFollowTheState)
{
    launch();
    wakeFor("a");
    settings().notificationsEnabled.set(false);
    choose(WakeMode::off);
    EXPECT_THAT(fake.notifications.calls, ElementsAre("post orrinvale.active", "remove orrinvale.active"));
    choose(WakeMode::manual);
    settings().notificationsEnabled.set(true);
    time.advance(60s);
    EXPECT_EQ(fake.notifications.posted.size(), 1u);
}

TEST_F(AppDelegateTest, TheTerminationFreesTheAssertionAndStopsEverything)
{
    launch();
    choose(WakeMode::manual);
    ASSERT_EQ(fake.power.held.size(), 1u);
    delegate->applicationWillTerminate();
    EXPECT_TRUE(fake.power.held.empty());
    EXPECT_EQ(time.timerCount(), 0u);
    delegate->applicationWillTerminate();
    EXPECT_EQ(fake.power.released.size(), 1u);
}

using AppDelegateDeathTest = AppDelegateTest;

TEST_F(AppDelegateDeathTest, TheEngineBeforeTheLaunchIsFatal)
{
    delegate.emplace(platform(), settings(), calendar, interface);
    EXPECT_DEATH(delegate->wakeEngine(), "before the launch");
}

} // namespace

} // namespace orrinvale
