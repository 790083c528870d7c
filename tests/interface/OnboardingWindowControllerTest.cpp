// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/OnboardingWindowController.h"

#include "kit/WindowButton.h"
#include "orrinvale/OnboardingView.h"
#include "orrinvale/QuitRequests.h"
#include "tests/interface/WindowFixture.h"

#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

namespace orrinvale
{

namespace
{

struct OnboardingWindowControllerTest : InterfaceFixture {
    OnboardingWindowController& controller()
    {
        if (!made)
            made = std::make_unique<OnboardingWindowController>(settings(), platform());
        return *made;
    }
    QWidget& window() { return controller().window(); }
    WindowButton& button() { return controller().view().button(); }
    void open()
    {
        controller().showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    bool isStored() const
    {
        const auto found = fake.userDefaults.values.find("orrinvale.hasSeenOnboarding");
        return found != fake.userDefaults.values.end() && found->second == DefaultsValue(true);
    }

    std::unique_ptr<OnboardingWindowController> made;
};

TEST_F(OnboardingWindowControllerTest, HasItsFixedWindow)
{
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Welcome to orrinvale"));
    EXPECT_EQ(window().size(), QSize(480, 520));
    EXPECT_EQ(window().minimumSize(), QSize(480, 520));
    EXPECT_EQ(window().maximumSize(), QSize(480, 520));
    EXPECT_FALSE(window().isVisible());
}

TEST_F(OnboardingWindowControllerTest, HasATitleAndNoButtons)
{
    const auto flags = window().windowFlags();
    EXPECT_TRUE(flags & Qt::CustomizeWindowHint);
    EXPECT_TRUE(flags & Qt::WindowTitleHint);
    EXPECT_FALSE(flags & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(flags & Qt::WindowMinimizeButtonHint);
    EXPECT_FALSE(flags & Qt::WindowMaximizeButtonHint);
    EXPECT_FALSE(flags & Qt::WindowSystemMenuHint);
}

TEST_F(OnboardingWindowControllerTest, ComesInFrontWithTheFocusOnItsButton)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    open();
    EXPECT_TRUE(window().isActiveWindow());
    EXPECT_TRUE(button().hasFocus());
}

TEST_F(OnboardingWindowControllerTest, GetStartedStoresAndCloses)
{
    open();
    EXPECT_FALSE(isStored());
    QTest::mouseClick(&button(), Qt::LeftButton, {}, middleOf(button()));
    EXPECT_TRUE(isStored());
    EXPECT_TRUE(settings().hasSeenOnboarding.get());
    EXPECT_FALSE(window().isVisible());
}

TEST_F(OnboardingWindowControllerTest, ReturnStoresAndCloses)
{
    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(isStored());
    EXPECT_FALSE(window().isVisible());
}

TEST_F(OnboardingWindowControllerTest, ShowingItStoresNothing)
{
    settings();
    const auto writes = fake.userDefaults.writes;
    open();
    settle();
    made.reset();
    EXPECT_EQ(fake.userDefaults.writes, writes);
}

TEST_F(OnboardingWindowControllerTest, EscapeDoesNotCloseIt)
{
    open();
    QTest::keyClick(&button(), Qt::Key_Escape);
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(isStored());
}

TEST_F(OnboardingWindowControllerTest, TheWindowManagerDoesNotCloseIt)
{
    open();
    QCloseEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window().windowHandle(), &event);
    settle();
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(isStored());
}

TEST_F(OnboardingWindowControllerTest, ACompositorDoesNotCloseItEither)
{
    open();
    window().windowHandle()->close(); // what Qt does where a compositor asks
    settle();
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(isStored());
}

TEST_F(OnboardingWindowControllerTest, KeepsNoSessionFromEndingTheApplication)
{
    auto ends = 0;
    const QuitRequests quitRequests(*qApp, [&ends] { ++ends; });
    open();
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(isStored());
}

TEST_F(OnboardingWindowControllerTest, TheEndOfTheApplicationLeavesItUnseen)
{
    open();
    made.reset();
    EXPECT_FALSE(isStored());
    EXPECT_FALSE(settings().hasSeenOnboarding.get());
}

TEST_F(OnboardingWindowControllerTest, OpensInTheColoursOfTheTheme)
{
    for (const auto& [theme, look] : {std::pair{AppTheme::light, Look::light}, std::pair{AppTheme::dark, Look::dark},
                                      std::pair{AppTheme::sakura, Look::sakura}}) {
        made.reset();
        settings().appTheme.set(theme);
        open();
        EXPECT_TRUE(isNearly(picture(window()).pixelColor(3, 3), WindowPalette::of(look).window));
        EXPECT_EQ(bytes(controller().view().headingLabel().colour()), bytes(WindowPalette::of(look).primaryText));
    }
}

TEST_F(OnboardingWindowControllerTest, TheSystemThemeFollowsTheDesktop)
{
    settings().appTheme.set(AppTheme::system);
    settings().applyTheme();
    open();
    fake.appearance.switchSystem(true);
    settle();
    EXPECT_TRUE(isNearly(picture(window()).pixelColor(3, 3), WindowPalette::of(Look::dark).window));
}

TEST_F(OnboardingWindowControllerTest, KeepsItsSizeWithLargerText)
{
    open();
    const LargerText larger(1.5);
    EXPECT_EQ(window().size(), QSize(480, 520));
    expectWhole(controller().view().headingLabel(), 48);
}

} // namespace

} // namespace orrinvale
