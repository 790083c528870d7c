// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WidgetInterface.h"

#include "orrinvale/Accessibility.h"
#include "orrinvale/ActivityLogWindowController.h"
#include "orrinvale/AppIconView.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/FeedbackWindowController.h"
#include "orrinvale/MenuBarController.h"
#include "orrinvale/OnboardingWindowController.h"
#include "orrinvale/SettingsWindowController.h"
#include "platform/Platform.h"
#include "tray/StatusItem.h"

#include <QWidget>

namespace orrinvale
{

WidgetInterface::WidgetInterface(AppSettings& settings, const Platform& platform, const LocalCalendar& calendar,
                                 FilePanels& filePanels, AvailableGeometry availableGeometry,
                                 std::function<void()> quit)
    : m_settings(settings), m_platform(platform), m_calendar(calendar), m_filePanels(filePanels),
      m_availableGeometry(std::move(availableGeometry)), m_quit(std::move(quit))
{
    installAccessibility();
}

WidgetInterface::~WidgetInterface() = default;

void WidgetInterface::showStatusItem(WakeEngine& engine)
{
    m_statusItem = makeStatusItem(m_platform.mainQueue);
    m_menuBar = std::make_unique<MenuBarController>(
        engine, m_settings, m_platform, *m_statusItem, m_availableGeometry,
        MenuBarController::Destinations{[this, &engine] { showActivityLog(engine); }, [this] { showSettings(); },
                                        m_quit});
}

void WidgetInterface::showOnboarding()
{
    m_onboardingWindow = std::make_unique<OnboardingWindowController>(m_settings, m_platform);
    m_onboardingWindow->showWindow();
}

bool WidgetInterface::canShowFeedback() const
{
    return FeedbackWindowController::findProgram().has_value();
}

void WidgetInterface::showFeedback()
{
    m_feedbackWindow = std::make_unique<FeedbackWindowController>(m_settings, m_platform);
    m_feedbackWindow->showWindow();
}

void WidgetInterface::showActivityLog(WakeEngine& engine)
{
    if (!m_activityLogWindow)
        m_activityLogWindow =
            std::make_unique<ActivityLogWindowController>(engine, m_settings, m_platform, m_calendar, m_filePanels);
    m_activityLogWindow->showWindow();
}

void WidgetInterface::showSettings()
{
    if (!m_settingsWindow)
        m_settingsWindow = std::make_unique<SettingsWindowController>(
            m_settings, m_platform,
            SettingsView::Surroundings{
                m_filePanels, [this](const auto& bundleID) { return new AppIconView(bundleID, m_platform, nullptr); },
                [this] { openFeedback(); }});
    m_settingsWindow->showWindow();
}

// Closes the window that it opened before.
void WidgetInterface::openFeedback()
{
    m_manualFeedbackWindow = std::make_unique<FeedbackWindowController>(m_settings, m_platform);
    m_manualFeedbackWindow->showWindow();
}

void WidgetInterface::comeForward()
{
    if (m_onboardingWindow && !m_settings.hasSeenOnboarding.get())
        m_onboardingWindow->showWindow();
    else if (m_menuBar)
        m_menuBar->comeForward();
}

} // namespace orrinvale
