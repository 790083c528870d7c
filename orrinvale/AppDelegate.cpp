// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppDelegate.h"

#include "base/Fatal.h"
#include "base/MainQueue.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ApplicationInterface.h"
#include "orrinvale/WakeEngine.h"
#include "platform/Platform.h"
#include "platform/UserNotifications.h"

namespace orrinvale
{

namespace
{

const std::string activeIdentifier = "orrinvale.active";
const std::string idleIdentifier = "orrinvale.idle";
const std::string notHeldIdentifier = "orrinvale.not-held";
constexpr std::chrono::hours feedbackCheckInterval{1};
constexpr auto daysUntilFeedback = 3;

} // namespace

AppDelegate::StateCategory AppDelegate::categoryOf(const WakeState& state)
{
    return state.isAwake() ? StateCategory::awake : StateCategory::idle;
}

AppDelegate::AppDelegate(const Platform& platform, AppSettings& settings, const LocalCalendar& calendar,
                         ApplicationInterface& interface)
    : m_platform(platform), m_settings(settings), m_calendar(calendar), m_interface(interface)
{
}

AppDelegate::~AppDelegate() = default;

WakeEngine& AppDelegate::wakeEngine()
{
    if (!m_wakeEngine)
        fatal("the wake engine was asked for before the launch");
    return *m_wakeEngine;
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_platform.userNotifications.requestAuthorization();
    m_settings.applyTheme();
    m_wakeEngine = std::make_unique<WakeEngine>(m_platform, m_settings, m_calendar);
    m_interface.showStatusItem(wakeEngine());
    wakeEngine().start();
    m_cancellables +=
        wakeEngine().state.observeOn(m_platform.mainQueue, [this](const WakeState& state) { stateChanged(state); });
    m_showedOnboarding = !m_settings.hasSeenOnboarding.get();
    if (m_showedOnboarding)
        m_interface.showOnboarding();
    checkFeedback();
    m_feedbackCheckTimer = m_platform.mainQueue.every(feedbackCheckInterval, [this] { checkFeedback(); });
}

void AppDelegate::stateChanged(const WakeState& state)
{
    const auto category = categoryOf(state);
    if (category == m_lastCategory)
        return;
    auto& notifications = m_platform.userNotifications;
    const auto wanted = m_settings.notificationsEnabled.get();
    if (category == StateCategory::idle)
        notifications.removeDelivered({activeIdentifier});
    if (wanted && category == StateCategory::idle)
        notifications.post({idleIdentifier, "orrinvale Inactive", "Mac is allowed to sleep again"});
    if (wanted && category == StateCategory::awake)
        notifications.post({activeIdentifier, "orrinvale Active", state.reason()});
    if (wanted && category == StateCategory::awake && !wakeEngine().sleepGuard().isHeld())
        tellOnceThatNothingIsHeld();
    m_lastCategory = category;
}

void AppDelegate::tellOnceThatNothingIsHeld()
{
    if (std::exchange(m_toldThatNothingIsHeld, true))
        return;
    m_platform.userNotifications.post({notHeldIdentifier, "Sleep cannot be held off",
                                       "This desktop offers orrinvale no way to hold off its sleep. It may fall asleep "
                                       "in the middle of what goes on."});
}

void AppDelegate::checkFeedback()
{
    if (m_settings.hasShownFeedbackPrompt.get() || m_settings.daysSinceFirstLaunch() < daysUntilFeedback)
        return;
    if (m_showedOnboarding && !m_settings.hasSeenOnboarding.get())
        return;
    if (!m_interface.canShowFeedback())
        return;                                  // what nobody was shown is not done with
    m_settings.hasShownFeedbackPrompt.set(true); // first, so that nothing makes the prompt appear twice
    m_interface.showFeedback();
}

void AppDelegate::applicationWillTerminate()
{
    m_feedbackCheckTimer.cancel();
    m_cancellables.clear();
    if (!m_wakeEngine || std::exchange(m_hasTerminated, true))
        return;
    m_wakeEngine->stop();
    // Some desktops keep them in a list after we have gone.
    m_platform.userNotifications.removeDelivered({activeIdentifier, idleIdentifier, notHeldIdentifier});
}

} // namespace orrinvale
