// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/MenuBarController.h"

#include "kit/TextLabel.h"
#include "orrinvale/MenuRowButton.h"
#include "orrinvale/ModeToggleControl.h"
#include "orrinvale/Popover.h"
#include "orrinvale/ReasonCardView.h"
#include "orrinvale/StatusIcon.h"
#include "orrinvale/StatusPopoverViewController.h"
#include "tests/interface/InterfaceFixture.h"
#include "tray/DesktopStatusItem.h"
#include "tray/SystemStatusItem.h"

#include <QPointer>

namespace orrinvale
{

namespace
{

struct MenuBarControllerTest : InterfaceFixture {
    ~MenuBarControllerTest() override
    {
        controller.reset();
        settle();
    }
    void start()
    {
        const auto leadTo = [this](const char* name) {
            return [this, name] {
                EXPECT_EQ(controller->popover(), nullptr) << "the popover is closed first";
                destinations.push_back(name);
            };
        };
        controller.emplace(engine(), settings(), platform(), item, &QScreen::availableGeometry,
                           MenuBarController::Destinations{leadTo("activity log"), leadTo("settings"), leadTo("quit")});
        settle();
    }
    void click()
    {
        item.onClick();
        settle();
    }
    void open()
    {
        start();
        click();
        ASSERT_TRUE(controller->popover());
    }
    StatusPopoverViewController& content() { return *controller->popoverViewController(); }
    QString title() { return content().titleLabel().text(); }
    void pressElsewhere()
    {
        QTest::mousePress(controller->popover(), Qt::LeftButton, {}, QPoint(-30, 100));
        settle();
    }
    void set(const WakeState& state)
    {
        engine().state.set(state);
        time.runPending();
    }
    QImage icon() { return item.icon().pixmap(18, 18).toImage(); }
    QImage drawing(const WakeState& state) { return statusIcon(state).pixmap(18, 18).toImage(); }

    DesktopStatusItem item{time};
    std::optional<MenuBarController> controller;
    std::vector<std::string> destinations;
};

TEST_F(MenuBarControllerTest, DrawsTheIconForTheIdleStateAtTheStart)
{
    start();
    EXPECT_EQ(icon(), drawing(WakeState::idle()));
    EXPECT_EQ(item.toolTip(), QStringLiteral("Idle: System may sleep normally"));
    EXPECT_FALSE(controller->popover());
}

TEST_F(MenuBarControllerTest, IconAndTooltipFollowTheState)
{
    start();
    set(WakeState::awake("Downloading <film>.part"));
    EXPECT_EQ(icon(), drawing(WakeState::awake("")));
    EXPECT_EQ(item.toolTip(), QStringLiteral("Awake: Downloading <film>.part"));
    set(WakeState::cooldown(12));
    EXPECT_EQ(icon(), drawing(WakeState::awake("")));
    EXPECT_EQ(item.toolTip(), QStringLiteral("Cooling Down: Going idle in 12s…"));
    set(WakeState::idle());
    EXPECT_EQ(icon(), drawing(WakeState::idle()));
}

TEST_F(MenuBarControllerTest, AClickOpensAndTheNextOneClosesThePopover)
{
    open();
    EXPECT_TRUE(controller->popover()->isVisible());
    EXPECT_EQ(controller->popover()->body().size(), QSize(340, 700));
    click();
    EXPECT_FALSE(controller->popover());
    EXPECT_FALSE(controller->popoverViewController());
}

TEST_F(MenuBarControllerTest, EachOpeningMakesANewPopoverAndTheOldOneIsGone)
{
    open();
    const QPointer<Popover> first(controller->popover());
    const QPointer<StatusPopoverViewController> firstContent(controller->popoverViewController());
    click();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(firstContent.isNull());
    click();
    EXPECT_TRUE(controller->popover());
}

TEST_F(MenuBarControllerTest, AClosedPopoverLeavesNoTimer)
{
    open();
    time.advance(1s);
    EXPECT_GT(time.timerCount(), 0u) << "the film";
    click();
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(MenuBarControllerTest, EscapeClosesAndTheNextClickOpensAtOnce)
{
    open();
    QTest::keyClick(controller->popover(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(controller->popover());
    click();
    EXPECT_TRUE(controller->popover());
}

TEST_F(MenuBarControllerTest, TheClickThatClosedItDoesNotOpenItAgain)
{
    open();
    pressElsewhere();
    EXPECT_FALSE(controller->popover());
    time.advance(299ms);
    click();
    EXPECT_FALSE(controller->popover());
}

TEST_F(MenuBarControllerTest, AClick300MillisecondsLaterOpensIt)
{
    open();
    pressElsewhere();
    time.advance(300ms);
    click();
    EXPECT_TRUE(controller->popover());
    EXPECT_TRUE(controller->popover()->isVisible());
}

TEST_F(MenuBarControllerTest, ClosingByTheItemItselfNeedsNoSuchPause)
{
    open();
    click();
    click();
    EXPECT_TRUE(controller->popover());
}

TEST_F(MenuBarControllerTest, TheOpenPopoverFollowsStateAndSignals)
{
    open();
    EXPECT_EQ(title(), QStringLiteral("Mac is about to sleep. ☕"));
    set(WakeState::awake("reason"));
    EXPECT_EQ(title(), QStringLiteral("Your Mac is awake. 🌿"));
    set(WakeState::cooldown(30));
    set(WakeState::cooldown(29));
    EXPECT_EQ(content().subtitleLabel().text(), QStringLiteral("Going to sleep in 29s"));
    engine().activeSignals.set({{.source = SignalSource::cpu,
                                 .detail = "CPU busy",
                                 .score = 1,
                                 .timestamp = time.now(),
                                 .appBundleID = {},
                                 .appName = {}}});
    time.advance(380ms);
    EXPECT_EQ(content().reasonCard().titleLabel().text(), QStringLiteral("CPU busy"));
}

TEST_F(MenuBarControllerTest, AModeSetElsewhereIsShownWithTheNextChangeOfState)
{
    open();
    engine().mode.set(WakeMode::off);
    time.runPending();
    EXPECT_EQ(content().modeToggle().selectedIndex(), 0);
    set(WakeState::idle());
    EXPECT_EQ(content().modeToggle().selectedIndex(), 2);
}

TEST_F(MenuBarControllerTest, AModeChosenInTheToggleReachesEngineSettingsAndTheMachineAtOnce)
{
    open();
    QTest::mouseClick(content().modeToggle().buttons()[1], Qt::LeftButton);
    EXPECT_EQ(engine().mode.get(), WakeMode::manual);
    EXPECT_EQ(settings().wakeMode.get(), WakeMode::manual);
    EXPECT_EQ(std::get<std::string>(fake.userDefaults.values.at("orrinvale.wakeMode")), "Always Awake");
    EXPECT_EQ(engine().state.get(), WakeState::awake("Manual mode — always awake")) << "with no tick of the engine's";
    EXPECT_EQ(fake.powerAssertions.held.size(), 1u);
    QTest::mouseClick(content().modeToggle().buttons()[2], Qt::LeftButton);
    EXPECT_EQ(std::get<std::string>(fake.userDefaults.values.at("orrinvale.wakeMode")), "Off");
    EXPECT_EQ(fake.powerAssertions.held.size(), 0u);
    QTest::mouseClick(content().modeToggle().buttons()[0], Qt::LeftButton);
    EXPECT_EQ(engine().mode.get(), WakeMode::smart);
    EXPECT_EQ(std::get<std::string>(fake.userDefaults.values.at("orrinvale.wakeMode")), "Smart");
    EXPECT_TRUE(controller->popover()->isVisible()) << "choosing a mode leaves it open";
}

TEST_F(MenuBarControllerTest, EachRowClosesThePopoverAndThenLeadsThere)
{
    start();
    for (const auto row : {&StatusPopoverViewController::logButton, &StatusPopoverViewController::settingsButton,
                           &StatusPopoverViewController::quitButton}) {
        click();
        QTest::mouseClick(&(content().*row)(), Qt::LeftButton);
        settle();
        EXPECT_FALSE(controller->popover());
    }
    EXPECT_THAT(destinations, ElementsAre("activity log", "settings", "quit"));
}

TEST_F(MenuBarControllerTest, ARowByKeyboardDoesTheSame)
{
    open();
    QTest::keyClick(&content().quitButton(), Qt::Key_Return);
    settle();
    EXPECT_FALSE(controller->popover());
    EXPECT_THAT(destinations, ElementsAre("quit"));
}

TEST_F(MenuBarControllerTest, ARowThatLeadsNowhereClosesThePopover)
{
    controller.emplace(engine(), settings(), platform(), item, &QScreen::availableGeometry,
                       MenuBarController::Destinations{});
    click();
    QTest::mouseClick(&content().logButton(), Qt::LeftButton);
    settle();
    EXPECT_FALSE(controller->popover());
}

TEST_F(MenuBarControllerTest, ComingForwardOpensThePopoverAndLeavesAnOpenOne)
{
    start();
    controller->comeForward();
    ASSERT_TRUE(controller->popover());
    auto* first = controller->popover();
    controller->comeForward();
    EXPECT_EQ(controller->popover(), first);
    EXPECT_TRUE(first->isVisible());
}

TEST_F(MenuBarControllerTest, ASwitchOfTheDesktopsThemeReachesTheWholeOpenPopover)
{
    settings().appTheme.set(AppTheme::system);
    settings().applyTheme();
    open();
    EXPECT_EQ(picture(*controller->popover()).pixelColor(10, 350), tableColour(0.961, 0.945, 0.914));
    fake.appearance.switchSystem(true);
    settle();
    const auto image = picture(*controller->popover());
    EXPECT_EQ(image.pixelColor(10, 350), tableColour(0.12, 0.12, 0.11));
    EXPECT_EQ(image.pixelColor(0, 350), tableColour(0.25, 0.25, 0.23)) << "its border";
    EXPECT_EQ(image.pixelColor(170, 425), tableColour(0.16, 0.16, 0.14)) << "its card";
}

TEST_F(MenuBarControllerTest, ThePopoverHasTheBackgroundOfItsTheme)
{
    fake.appearance.systemIsDark = true;
    start();
    for (const auto& [theme, background] : {std::pair(AppTheme::light, tableColour(0.961, 0.945, 0.914)),
                                            {AppTheme::dark, tableColour(0.12, 0.12, 0.11)},
                                            {AppTheme::system, tableColour(0.12, 0.12, 0.11)},
                                            {AppTheme::sakura, tableColour(0.988, 0.949, 0.96)}}) {
        settings().appTheme.set(theme);
        settings().applyTheme();
        click();
        EXPECT_EQ(picture(*controller->popover()).pixelColor(10, 350), background) << rawValue(theme);
        click();
    }
}

TEST_F(MenuBarControllerTest, AShadowIsThereOnlyWhereWindowsAreComposed)
{
    open();
    EXPECT_EQ(controller->popover()->body().topLeft(), QPoint(0, 0));
    click();
    fake.appearance.composited = true;
    click();
    EXPECT_EQ(controller->popover()->body().topLeft(), QPoint(16, 16));
}

TEST_F(MenuBarControllerTest, TheToggleHasTheFocusFromTheStartWithoutARing)
{
    engine().mode.set(WakeMode::manual);
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(controller->popover()));
    auto* selected = content().modeToggle().buttons()[1];
    EXPECT_EQ(QApplication::focusWidget(), selected);
    EXPECT_FALSE(selected->showsFocusRing());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &content().logButton());
    EXPECT_TRUE(content().logButton().showsFocusRing());
}

TEST_F(MenuBarControllerTest, ItMayEndWhileThePopoverIsOpen)
{
    open();
    const QPointer<Popover> popover(controller->popover());
    controller.reset();
    EXPECT_TRUE(popover.isNull());
    EXPECT_FALSE(item.onClick);
    EXPECT_EQ(time.timerCount(), 0u);
    set(WakeState::awake("reason"));
    fake.appearance.switchSystem(true);
}

TEST_F(MenuBarControllerTest, ItMayEndJustAfterAClickElsewhere)
{
    open();
    pressElsewhere();
    controller.reset();
    time.advance(1s);
}

TEST(DesktopStatusItem, KeepsItsIconAndTextForTheTrayThatComes)
{
    VirtualTime time;
    DesktopStatusItem item(time);
    item.setIcon(statusIcon(WakeState::idle()));
    item.setToolTip(QStringLiteral("Idle: <b>"));
    EXPECT_FALSE(item.icon().isNull());
    EXPECT_EQ(item.toolTip(), QStringLiteral("Idle: <b>"));
}

TEST(DesktopStatusItem, DoesNotGuessWhereItIsOutsideOfX11)
{
    VirtualTime time;
    DesktopStatusItem item(time);
    EXPECT_FALSE(item.anchor().icon);
    EXPECT_FALSE(item.anchor().pointer);
}

} // namespace

TEST(SystemStatusItem, TakesLeftAndRightForOneClickAndADoubleOneForItsFirst)
{
    SystemStatusItem item(SystemStatusItem::ToolTip::plainText);
    int clicks = 0;
    item.activate(QSystemTrayIcon::Trigger);
    item.onClick = [&] { ++clicks; };
    for (const auto reason : {QSystemTrayIcon::Trigger, QSystemTrayIcon::DoubleClick, QSystemTrayIcon::Context,
                              QSystemTrayIcon::MiddleClick, QSystemTrayIcon::Unknown})
        item.activate(reason);
    EXPECT_EQ(clicks, 2);
}

TEST(SystemStatusItem, OpensAtThePointerWhereItsPlaceIsNotTold)
{
    SystemStatusItem item(SystemStatusItem::ToolTip::plainText);
    EXPECT_FALSE(item.anchor().icon);
    EXPECT_EQ(item.anchor().pointer, QCursor::pos());
}

} // namespace orrinvale
