// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ApplicationInterface.h"
#include "orrinvale/PopoverPlacement.h"

#include <functional>
#include <memory>

namespace orrinvale
{

class ActivityLogWindowController;
class AppSettings;
class FeedbackWindowController;
class FilePanels;
class LocalCalendar;
class MenuBarController;
class OnboardingWindowController;
class SettingsWindowController;
class StatusItem;
struct Platform;

// The application as the user sees it, in Qt Widgets: everything is made when it is first needed. Main thread.
class WidgetInterface final : public ApplicationInterface
{
public:
    // All outlive the interface. `quit` ends the application whatever windows there are.
    WidgetInterface(AppSettings& settings, const Platform& platform, const LocalCalendar& calendar,
                    FilePanels& filePanels, AvailableGeometry availableGeometry, std::function<void()> quit);
    ~WidgetInterface() override;

    void showStatusItem(WakeEngine& engine) override;
    void showOnboarding() override;
    bool canShowFeedback() const override;
    void showFeedback() override;
    // The user started the application again: whatever there is to see comes to the front.
    void comeForward();

private:
    void showActivityLog(WakeEngine& engine);
    void showSettings();
    void openFeedback();

    AppSettings& m_settings;
    const Platform& m_platform;
    const LocalCalendar& m_calendar;
    FilePanels& m_filePanels;
    AvailableGeometry m_availableGeometry;
    std::function<void()> m_quit;
    std::unique_ptr<StatusItem> m_statusItem;
    std::unique_ptr<MenuBarController> m_menuBar;
    std::unique_ptr<ActivityLogWindowController> m_activityLogWindow;
    std::unique_ptr<SettingsWindowController> m_settingsWindow;
    std::unique_ptr<OnboardingWindowController> m_onboardingWindow;
    std::unique_ptr<FeedbackWindowController> m_feedbackWindow;       // of the prompt
    std::unique_ptr<FeedbackWindowController> m_manualFeedbackWindow; // from the settings
};

} // namespace orrinvale
