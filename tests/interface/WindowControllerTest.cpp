// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WindowController.h"

#include "tests/interface/WindowFixture.h"

#include <QAccessible>
#include <QBackingStore>
#include <QScreen>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

namespace orrinvale
{

namespace
{

struct Content final : QWidget {
    Content() { setAttribute(Qt::WA_NoSystemBackground); }
};

struct SomeWindow final : WindowController {
    SomeWindow(AppSettings& settings, const Platform& platform, const Shape& shape)
        : WindowController(settings, platform, shape), content(new Content)
    {
        setContent(content);
    }
    void applyTheme() override { looks.push_back(look()); }

    Content* content;
    std::vector<Look> looks; // each time it was coloured
};

const WindowController::Shape shape{QStringLiteral("Some window"), {540, 420}, {460, 400}};
const WindowController::Shape fixedShape{
    QStringLiteral("Fixed"), {480, 520}, {480, 520}, WindowController::Closing::byProgramAlone};

struct WindowControllerTest : InterfaceFixture {
    SomeWindow& some(const WindowController::Shape& which = shape)
    {
        if (!made)
            made = std::make_unique<SomeWindow>(settings(), platform(), which);
        return *made;
    }
    void choose(AppTheme theme)
    {
        settings().appTheme.set(theme);
        settings().applyTheme();
        settle();
    }
    QColor corner() { return picture(made->window()).pixelColor(0, 0); }
    // The way of the window manager's close button.
    void closeFromOutside()
    {
        ASSERT_NE(made->window().windowHandle(), nullptr);
        QCloseEvent event;
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(made->window().windowHandle(), &event);
        settle();
    }

    std::unique_ptr<SomeWindow> made;
};

TEST_F(WindowControllerTest, TheWindowHasOurIconInTheSizesOfTitleBarsAndSwitchers)
{
    const auto icon = some().window().windowIcon();
    for (const auto size : {16, 32, 48, 128}) {
        const auto image = icon.pixmap(QSize(size, size), 1.0).toImage();
        EXPECT_EQ(image.size(), QSize(size, size));
        EXPECT_GT(image.pixelColor(size / 2, size / 2).alpha(), 200) << size;
    }
}

TEST_F(WindowControllerTest, HasTitleAndSizesBeforeItShows)
{
    auto& window = some().window();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.isWindow());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Some window"));
    EXPECT_EQ(window.size(), QSize(540, 420));
    EXPECT_EQ(window.minimumSize(), QSize(460, 400));
    EXPECT_EQ(window.maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

TEST_F(WindowControllerTest, AssistiveTechnologyHearsOfAWindowByItsTitle)
{
    auto* window = QAccessible::queryAccessibleInterface(&some().window());
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->role(), QAccessible::Window);
    EXPECT_EQ(window->text(QAccessible::Name), QStringLiteral("Some window"));
    EXPECT_NE(QAccessible::queryAccessibleInterface(made->content)->role(), QAccessible::Window);
}

TEST_F(WindowControllerTest, TheContentFillsTheWindow)
{
    some().showWindow();
    EXPECT_EQ(some().content->geometry(), QRect(0, 0, 540, 420));
    some().window().resize(700, 600);
    EXPECT_EQ(some().content->geometry(), QRect(0, 0, 700, 600));
}

// The pixels that the window system shows, which a grab of the widget is not. Run at many scale factors.
TEST_F(WindowControllerTest, EveryPixelIsPainted)
{
    auto& window = some().window();
    made->showWindow();
    for (int more = 0; more < 48; ++more) {
        window.resize(540 + more, 660 + more);
        settle();
        auto* store = dynamic_cast<QImage*>(window.backingStore()->paintDevice());
        ASSERT_NE(store, nullptr);
        auto pixels = store->copy();
        pixels.setDevicePixelRatio(1);
        const auto expected = pixels.pixelColor(pixels.width() / 2, pixels.height() / 2);
        for (int x = 0; x < pixels.width(); ++x)
            ASSERT_EQ(pixels.pixelColor(x, pixels.height() - 1), expected) << x << " of " << pixels.width();
        for (int y = 0; y < pixels.height(); ++y)
            ASSERT_EQ(pixels.pixelColor(pixels.width() - 1, y), expected) << y << " of " << pixels.height();
    }
}

TEST_F(WindowControllerTest, IsFixedWhenItsSizeIsItsMinimum)
{
    some(fixedShape);
    EXPECT_EQ(made->window().minimumSize(), QSize(480, 520));
    EXPECT_EQ(made->window().maximumSize(), QSize(480, 520));
    EXPECT_FALSE(made->window().windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(made->window().windowFlags() & Qt::WindowMinMaxButtonsHint);
    EXPECT_FALSE(made->window().windowFlags() & Qt::WindowSystemMenuHint);
    EXPECT_TRUE(made->window().windowFlags() & Qt::WindowTitleHint);
}

TEST_F(WindowControllerTest, AnOrdinaryOneHasTheButtonsOfAWindow)
{
    some();
    EXPECT_TRUE(made->window().windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_TRUE(made->window().windowFlags() & Qt::WindowMinimizeButtonHint);
}

TEST_F(WindowControllerTest, StandsInTheMiddleTheFirstTimeAndWhereItWasPutAfterwards)
{
    some().showWindow();
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(made->window().pos(), screen.center() - made->window().rect().center());
    made->window().move(30, 40);
    made->window().close();
    made->showWindow();
    EXPECT_EQ(made->window().pos(), QPoint(30, 40));
}

TEST_F(WindowControllerTest, TheTitleOfAWindowLargerThanTheScreenIsOnIt)
{
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry();
    some({QStringLiteral("Large"), screen.size() + QSize(100, 200), {100, 100}}).showWindow();
    EXPECT_EQ(made->window().pos(), screen.topLeft());
}

TEST_F(WindowControllerTest, ShowsTheSameWindowAgainAfterClosing)
{
    some().showWindow();
    auto* window = &made->window();
    window->resize(600, 500);
    window->close();
    EXPECT_FALSE(window->isVisible());
    settle();
    made->showWindow();
    EXPECT_EQ(&made->window(), window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->size(), QSize(600, 500));
}

TEST_F(WindowControllerTest, ComesBackFromBeingMinimized)
{
    some().showWindow();
    made->window().showMinimized();
    made->showWindow();
    EXPECT_FALSE(made->window().isMinimized());
    EXPECT_TRUE(made->window().isVisible());
}

TEST_F(WindowControllerTest, ComesInFrontOfAnotherWindow)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    some().showWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&made->window()));
    EXPECT_TRUE(made->window().isActiveWindow());
}

TEST_F(WindowControllerTest, IsColouredAnewWhenShown)
{
    const auto before = some().looks.size();
    made->showWindow();
    EXPECT_EQ(made->looks.size(), before + 1);
    made->window().close();
    made->showWindow();
    EXPECT_EQ(made->looks.size(), before + 2);
}

TEST_F(WindowControllerTest, IsPaintedInTheWindowColourOfTheTheme)
{
    some().showWindow();
    for (const auto& [theme, look] : {std::pair{AppTheme::light, Look::light}, std::pair{AppTheme::dark, Look::dark},
                                      std::pair{AppTheme::sakura, Look::sakura}}) {
        choose(theme);
        EXPECT_EQ(made->looks.back(), look);
        EXPECT_TRUE(isNearly(corner(), WindowPalette::of(look).window));
    }
}

TEST_F(WindowControllerTest, FollowsTheSystemWhileOpen)
{
    some().showWindow();
    choose(AppTheme::system);
    EXPECT_EQ(made->looks.back(), Look::light);
    fake.appearance.switchSystem(true);
    settle();
    EXPECT_EQ(made->looks.back(), Look::dark);
    EXPECT_TRUE(isNearly(corner(), WindowPalette::of(Look::dark).window));
    fake.appearance.switchSystem(false);
    settle();
    EXPECT_EQ(made->looks.back(), Look::light);
}

TEST_F(WindowControllerTest, OtherThemesDoNotFollowTheSystem)
{
    some().showWindow();
    for (const auto& [theme, look] : {std::pair{AppTheme::light, Look::light}, std::pair{AppTheme::dark, Look::dark},
                                      std::pair{AppTheme::sakura, Look::sakura}}) {
        choose(theme);
        for (const auto isDark : {true, false}) {
            fake.appearance.switchSystem(isDark);
            settle();
            EXPECT_EQ(made->looks.back(), look);
            EXPECT_TRUE(isNearly(corner(), WindowPalette::of(look).window));
        }
    }
}

TEST_F(WindowControllerTest, IsStyledAnewWhenTheDesktopsFontChanges)
{
    some().showWindow();
    settle();
    const auto before = made->looks.size();
    const LargerText larger(1.5);
    settle();
    EXPECT_GT(made->looks.size(), before);
}

TEST_F(WindowControllerTest, EscapeClosesIt)
{
    some().showWindow();
    QTest::keyClick(&made->window(), Qt::Key_Escape);
    EXPECT_FALSE(made->window().isVisible());
}

TEST_F(WindowControllerTest, EscapeInsideTheContentClosesIt)
{
    some().showWindow();
    QTest::keyClick(made->content, Qt::Key_Escape);
    EXPECT_FALSE(made->window().isVisible());
}

TEST_F(WindowControllerTest, OtherKeysDoNotCloseIt)
{
    some().showWindow();
    for (const auto key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Q, Qt::Key_Backspace})
        QTest::keyClick(&made->window(), key);
    EXPECT_TRUE(made->window().isVisible());
}

TEST_F(WindowControllerTest, TheUserMayCloseAnOrdinaryWindow)
{
    some().showWindow();
    closeFromOutside();
    EXPECT_FALSE(made->window().isVisible());
}

TEST_F(WindowControllerTest, WhatTheProgramAloneClosesIgnoresTheUser)
{
    some(fixedShape).showWindow();
    QTest::keyClick(&made->window(), Qt::Key_Escape);
    EXPECT_TRUE(made->window().isVisible());
    closeFromOutside();
    EXPECT_TRUE(made->window().isVisible());
    made->window().windowHandle()->close(); // as Qt does where a compositor asks
    made->window().close();
    settle();
    EXPECT_TRUE(made->window().isVisible());
}

TEST_F(WindowControllerTest, WhatTheProgramAloneClosesCanBeHiddenAndShownAgain)
{
    some(fixedShape).showWindow();
    made->window().hide();
    EXPECT_FALSE(made->window().isVisible());
    made->showWindow();
    EXPECT_TRUE(made->window().isVisible());
}

TEST_F(WindowControllerTest, MayGoWhileChangesAreOnTheirWay)
{
    some().showWindow();
    settings().appTheme.set(AppTheme::dark);
    made.reset();
    settle();
    fake.appearance.switchSystem(true);
    settle();
}

} // namespace

} // namespace orrinvale
