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
    int feedbacks = 0;
    bool hasFeedbackForm = true;
    std::function<void()> onOnboarding = [] {};
    std::function<void()> onFeedback = [] {};
    void showOnboarding() override
    {
        ++onboardings;
        onOnboarding();
    }
    bool canShowFeedback() const override { return hasFeedbackForm; }
    void showFeedback() override
    {
        ++feedbacks;
        onFeedback();
    }
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
        fake.runningApplications.list.clear();
        fake.runningApplications.run("org.example.App", "App");
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
    EXPECT_EQ(fake.userNotifications.authorizationRequests, 1);
    EXPECT_THAT(fake.appearance.applied, ElementsAre(AppearanceChoice::light));
    EXPECT_EQ(interface.items, 1);
    EXPECT_THAT(fake.userNotifications.calls, IsEmpty());
}

TEST_F(AppDelegateTest, OnboardingIsShownWhileItHasNotBeenSeen)
{
    launch();
    EXPECT_EQ(interface.onboardings, 1);
    EXPECT_FALSE(settings().hasSeenOnboarding.get());
    delegate->applicationWillTerminate();
    launch();
    EXPECT_EQ(interface.onboardings, 2);
}

TEST_F(AppDelegateTest, OnboardingThatWasSeenIsNotShownAgain)
{
    settings().hasSeenOnboarding.set(true);
    launch();
    EXPECT_EQ(interface.onboardings, 0);
}

TEST_F(AppDelegateTest, OnboardingComesAfterTheItemAndTheEnginesStart)
{
    interface.onOnboarding = [this] {
        EXPECT_EQ(interface.items, 1);
        EXPECT_GT(time.timerCount(), 0u);
    };
    launch();
    EXPECT_EQ(interface.onboardings, 1);
}

TEST_F(AppDelegateTest, BecomingAwakePostsTheReason)
{
    launch();
    wakeFor("Rendering");
    ASSERT_EQ(fake.userNotifications.posted.size(), 1u);
    EXPECT_EQ(fake.userNotifications.posted[0].identifier, "orrinvale.active");
    EXPECT_EQ(fake.userNotifications.posted[0].title, "orrinvale Active");
    EXPECT_EQ(fake.userNotifications.posted[0].body, "Rendering");
}

TEST_F(AppDelegateTest, AnotherReasonPostsNothing)
{
    launch();
    wakeFor("a");
    wakeFor("b");
    EXPECT_EQ(fake.userNotifications.posted.size(), 1u);
}

TEST_F(AppDelegateTest, TheCooldownPostsOneInactiveNotificationAtItsStart)
{
    launch();
    wakeFor("a");
    settings().customProcesses.set({});
    time.runPending();
    EXPECT_THAT(fake.userNotifications.calls,
                ElementsAre("post orrinvale.active", "remove orrinvale.active", "post orrinvale.idle"));
    EXPECT_EQ(fake.userNotifications.posted[1].title, "orrinvale Inactive");
    EXPECT_EQ(fake.userNotifications.posted[1].body, "Mac is allowed to sleep again");
    time.advance(60s);
    EXPECT_EQ(fake.userNotifications.calls.size(), 3u);
}

TEST_F(AppDelegateTest, SwitchedOffNotificationsStillRemoveAndFollowTheState)
{
    launch();
    wakeFor("a");
    settings().notificationsEnabled.set(false);
    choose(WakeMode::off);
    EXPECT_THAT(fake.userNotifications.calls, ElementsAre("post orrinvale.active", "remove orrinvale.active"));
    choose(WakeMode::manual);
    settings().notificationsEnabled.set(true);
    time.advance(60s);
    EXPECT_EQ(fake.userNotifications.posted.size(), 1u);
}

TEST_F(AppDelegateTest, TheTerminationFreesTheAssertionAndStopsEverything)
{
    launch();
    choose(WakeMode::manual);
    ASSERT_EQ(fake.powerAssertions.held.size(), 1u);
    delegate->applicationWillTerminate();
    EXPECT_TRUE(fake.powerAssertions.held.empty());
    EXPECT_EQ(time.timerCount(), 0u);
    delegate->applicationWillTerminate();
    EXPECT_EQ(fake.powerAssertions.released.size(), 1u);
}

TEST_F(AppDelegateTest, TheTerminationWithdrawsWhatStandsOnce)
{
    launch();
    wakeFor("a");
    delegate->applicationWillTerminate();
    delegate->applicationWillTerminate();
    EXPECT_THAT(fake.userNotifications.calls, ElementsAre("post orrinvale.active", "remove orrinvale.active",
                                                          "remove orrinvale.idle", "remove orrinvale.not-held"));
}

TEST_F(AppDelegateTest, AFailureToHoldIsToldOnceASession)
{
    fake.powerAssertions.status = -95;
    launch();
    wakeFor("a");
    EXPECT_THAT(fake.userNotifications.calls, ElementsAre("post orrinvale.active", "post orrinvale.not-held"));
    EXPECT_EQ(fake.userNotifications.posted.back().title, "Sleep cannot be held off");
    choose(WakeMode::off);
    fake.userNotifications.calls.clear();
    choose(WakeMode::manual);
    EXPECT_THAT(fake.userNotifications.calls, ElementsAre("post orrinvale.active"));
}

TEST_F(AppDelegateTest, AFailureToHoldIsNotToldToWhoWantsNoNotifications)
{
    fake.powerAssertions.status = -95;
    settings().notificationsEnabled.set(false);
    launch();
    wakeFor("a");
    EXPECT_THAT(fake.userNotifications.calls, IsEmpty());
    choose(WakeMode::off);
    settings().notificationsEnabled.set(true);
    choose(WakeMode::manual);
    EXPECT_EQ(fake.userNotifications.posted.back().identifier, "orrinvale.not-held");
}

TEST_F(AppDelegateTest, FeedbackIsAskedForAtTheHourlyCheckAfterThreeDays)
{
    settings().hasSeenOnboarding.set(true);
    launch();
    time.advance(3 * 24h - 1h);
    EXPECT_EQ(interface.feedbacks, 0);
    time.advance(1h);
    EXPECT_EQ(interface.feedbacks, 1);
    EXPECT_TRUE(settings().hasShownFeedbackPrompt.get());
    time.advance(24h);
    EXPECT_EQ(interface.feedbacks, 1);
}

TEST_F(AppDelegateTest, FeedbackIsAskedForAtTheNextLaunchAfterThreeDays)
{
    settings().hasSeenOnboarding.set(true);
    settings();
    time.sleepMachineFor(3 * 24h);
    launch();
    EXPECT_EQ(interface.feedbacks, 1);
}

TEST_F(AppDelegateTest, FeedbackIsAskedForOnceEver)
{
    settings().hasSeenOnboarding.set(true);
    time.sleepMachineFor(3 * 24h);
    launch();
    delegate->applicationWillTerminate();
    launch();
    EXPECT_EQ(interface.feedbacks, 1);
}

TEST_F(AppDelegateTest, TheMarkIsStoredBeforeAnythingIsShown)
{
    settings().hasSeenOnboarding.set(true);
    time.sleepMachineFor(3 * 24h);
    interface.onFeedback = [&] {
        EXPECT_EQ(fake.userDefaults.object("orrinvale.hasShownFeedbackPrompt"), DefaultsValue(true));
    };
    launch();
    EXPECT_EQ(interface.feedbacks, 1);
}

TEST_F(AppDelegateTest, FeedbackWaitsForTheOnboardingThatThisLaunchShows)
{
    settings();
    time.sleepMachineFor(4 * 24h);
    launch();
    time.advance(5h);
    EXPECT_EQ(interface.onboardings, 1);
    EXPECT_EQ(interface.feedbacks, 0);
    EXPECT_FALSE(settings().hasShownFeedbackPrompt.get());
    settings().hasSeenOnboarding.set(true);
    EXPECT_EQ(interface.feedbacks, 0);
    time.advance(1h);
    EXPECT_EQ(interface.feedbacks, 1);
}

TEST_F(AppDelegateTest, FeedbackIsNotAskedForAndNotDoneWithWhereThereIsNoFormUntilThereIs)
{
    settings().hasSeenOnboarding.set(true);
    interface.hasFeedbackForm = false;
    launch();
    time.advance(4 * 24h);
    EXPECT_EQ(interface.feedbacks, 0);
    EXPECT_FALSE(settings().hasShownFeedbackPrompt.get());
    interface.hasFeedbackForm = true;
    time.advance(1h);
    EXPECT_EQ(interface.feedbacks, 1);
    EXPECT_TRUE(settings().hasShownFeedbackPrompt.get());
}

TEST_F(AppDelegateTest, ASuspendedMachineChecksWithinAnHourOfUse)
{
    settings().hasSeenOnboarding.set(true);
    launch();
    time.sleepMachineFor(5 * 24h);
    EXPECT_EQ(interface.feedbacks, 0);
    time.advance(1h);
    EXPECT_EQ(interface.feedbacks, 1);
}

TEST_F(AppDelegateTest, NothingIsAskedForAfterTheTermination)
{
    settings().hasSeenOnboarding.set(true);
    launch();
    delegate->applicationWillTerminate();
    time.advance(4 * 24h);
    EXPECT_EQ(interface.feedbacks, 0);
}

using AppDelegateDeathTest = AppDelegateTest;

TEST_F(AppDelegateDeathTest, TheEngineBeforeTheLaunchIsFatal)
{
    delegate.emplace(platform(), settings(), calendar, interface);
    EXPECT_DEATH(delegate->wakeEngine(), "before the launch");
}

} // namespace

} // namespace orrinvale
