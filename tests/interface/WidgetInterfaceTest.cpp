// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WidgetInterface.h"

#include "kit/WindowButton.h"
#include "orrinvale/ActivityLogView.h"
#include "orrinvale/AppIconView.h"
#include "orrinvale/MenuRowButton.h"
#include "orrinvale/OnboardingView.h"
#include "orrinvale/SettingsView.h"
#include "orrinvale/StatusPopoverViewController.h"
#include "platform/fake/FakeFilePanels.h"
#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

const auto logTitle = QStringLiteral("orrinvale — Activity Log");
const auto settingsTitle = QStringLiteral("orrinvale Settings");
const auto onboardingTitle = QStringLiteral("Welcome to orrinvale");

struct WidgetInterfaceTest : InterfaceFixture {
    WidgetInterfaceTest()
    {
        interface = std::make_unique<WidgetInterface>(settings(), platform(), english, panels,
                                                      &QScreen::availableGeometry, [this] { ++quits; });
    }
    ~WidgetInterfaceTest() override
    {
        interface.reset();
        settle();
    }
    // nullptr while there is none.
    static QWidget* window(const QString& title)
    {
        for (auto* widget : QApplication::topLevelWidgets())
            if (widget->windowTitle() == title)
                return widget;
        return nullptr;
    }
    static bool isShown(const QString& title) { return window(title) && window(title)->isVisible(); }
    static StatusPopoverViewController* popover()
    {
        for (auto* widget : QApplication::allWidgets())
            if (auto* found = qobject_cast<StatusPopoverViewController*>(widget); found && found->isVisible())
                return found;
        return nullptr;
    }
    // Opens the popover, and presses the row that it finds there.
    void press(MenuRowButton& (StatusPopoverViewController::*row)() const)
    {
        interface->comeForward();
        settle();
        ASSERT_NE(popover(), nullptr);
        (popover()->*row)().click();
        settle();
        EXPECT_EQ(popover(), nullptr);
    }

    LocalCalendar english{"UTC", "en_US"};
    FakeFilePanels panels;
    int quits = 0;
    std::unique_ptr<WidgetInterface> interface;
};

TEST_F(WidgetInterfaceTest, MakesNoWindowBeforeItIsNeeded)
{
    interface->showStatusItem(engine());
    for (const auto& title : {logTitle, settingsTitle, onboardingTitle})
        EXPECT_EQ(window(title), nullptr);
    EXPECT_EQ(popover(), nullptr);
}

TEST_F(WidgetInterfaceTest, ThePopoversRowsOpenTheirWindows)
{
    interface->showStatusItem(engine());
    press(&StatusPopoverViewController::logButton);
    EXPECT_TRUE(isShown(logTitle));
    EXPECT_FALSE(isShown(settingsTitle));
    press(&StatusPopoverViewController::settingsButton);
    EXPECT_TRUE(isShown(settingsTitle));
    EXPECT_TRUE(window(settingsTitle)->isActiveWindow());
    EXPECT_EQ(quits, 0);
}

TEST_F(WidgetInterfaceTest, WindowsAreMadeOnceAndKept)
{
    interface->showStatusItem(engine());
    press(&StatusPopoverViewController::logButton);
    press(&StatusPopoverViewController::settingsButton);
    auto* log = window(logTitle);
    auto* settingsWindow = window(settingsTitle);
    log->close();
    settingsWindow->close();
    settle();
    press(&StatusPopoverViewController::logButton);
    press(&StatusPopoverViewController::settingsButton);
    EXPECT_EQ(window(logTitle), log);
    EXPECT_EQ(window(settingsTitle), settingsWindow);
    EXPECT_TRUE(log->isVisible());
    EXPECT_TRUE(settingsWindow->isVisible());
}

TEST_F(WidgetInterfaceTest, TheLogWindowShowsTheEnginesLog)
{
    interface->showStatusItem(engine());
    engine().activityLog.set({{UUID::random(), time.now(), "m", PersistedStateCategory::awake}});
    press(&StatusPopoverViewController::logButton);
    EXPECT_EQ(window(logTitle)->findChild<ActivityLogView*>()->statsLabel().text(), QStringLiteral("1 entries"));
}

TEST_F(WidgetInterfaceTest, TheWatchListShowsIcons)
{
    settings().customProcesses.set({{UUID::random(), "org.example.App", "App", 3}});
    interface->showStatusItem(engine());
    press(&StatusPopoverViewController::settingsButton);
    EXPECT_EQ(window(settingsTitle)->findChildren<AppIconView*>().size(), 1);
}

TEST_F(WidgetInterfaceTest, QuitEndsTheApplication)
{
    interface->showStatusItem(engine());
    press(&StatusPopoverViewController::quitButton);
    EXPECT_EQ(quits, 1);
}

TEST_F(WidgetInterfaceTest, OnboardingComesInFrontWithoutAnyOtherWindow)
{
    interface->showOnboarding();
    EXPECT_TRUE(isShown(onboardingTitle));
    EXPECT_TRUE(QTest::qWaitForWindowActive(window(onboardingTitle)));
}

TEST_F(WidgetInterfaceTest, ComingForwardShowsTheOnboardingUntilItHasBeenSeenAndThePopoverAfterwards)
{
    interface->showStatusItem(engine());
    interface->showOnboarding();
    interface->comeForward();
    settle();
    EXPECT_TRUE(isShown(onboardingTitle));
    EXPECT_EQ(popover(), nullptr);
    window(onboardingTitle)->findChild<OnboardingView*>()->button().click();
    EXPECT_FALSE(isShown(onboardingTitle));
    EXPECT_TRUE(settings().hasSeenOnboarding.get());
    interface->comeForward();
    settle();
    EXPECT_NE(popover(), nullptr);
    EXPECT_FALSE(isShown(onboardingTitle));
}

TEST_F(WidgetInterfaceTest, ComingForwardBeforeThereIsAnythingIsSafe)
{
    interface->comeForward();
    EXPECT_EQ(popover(), nullptr);
}

TEST_F(WidgetInterfaceTest, CanShowFeedbackWhereItsProgramIsInstalled)
{
    const QFileInfo program(QCoreApplication::applicationDirPath() + QStringLiteral("/orrinvale-feedback"));
    EXPECT_EQ(interface->canShowFeedback(), program.isFile());
}

TEST_F(WidgetInterfaceTest, TheWindowsGoWithIt)
{
    interface->showStatusItem(engine());
    press(&StatusPopoverViewController::logButton);
    press(&StatusPopoverViewController::settingsButton);
    interface->showOnboarding();
    interface.reset();
    settle();
    for (const auto& title : {logTitle, settingsTitle, onboardingTitle})
        EXPECT_EQ(window(title), nullptr);
}

TEST_F(WidgetInterfaceTest, AllOpenWindowsFollowTheDesktopUnlessTheThemeIsSakura)
{
    settings().appTheme.set(AppTheme::system);
    settings().applyTheme();
    interface->showStatusItem(engine());
    press(&StatusPopoverViewController::logButton);
    press(&StatusPopoverViewController::settingsButton);
    interface->showOnboarding();
    const auto expectAll = [](Look look) {
        for (const auto& title : {logTitle, settingsTitle, onboardingTitle})
            EXPECT_TRUE(isNearly(picture(*window(title)).pixelColor(5, 100), WindowPalette::of(look).window))
                << title.toStdString();
    };
    expectAll(Look::light);
    fake.appearance.switchSystem(true);
    settle();
    expectAll(Look::dark);
    settings().appTheme.set(AppTheme::sakura);
    settle();
    expectAll(Look::sakura);
    fake.appearance.switchSystem(false);
    settle();
    expectAll(Look::sakura);
}

} // namespace

} // namespace orrinvale
