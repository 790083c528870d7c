// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsWindowController.h"

#include "kit/OverlayScrollArea.h"
#include "kit/WindowButton.h"
#include "orrinvale/SensitivityRow.h"
#include "orrinvale/ThemeTile.h"
#include "orrinvale/ThemeTiles.h"
#include "orrinvale/ToggleRow.h"
#include "orrinvale/WatchListView.h"
#include "platform/fake/FakeFilePanels.h"
#include "tests/interface/WindowFixture.h"

#include <QScrollBar>

namespace orrinvale
{

namespace
{

struct SettingsWindowControllerTest : InterfaceFixture {
    SettingsWindowController& controller()
    {
        if (!made)
            made = std::make_unique<SettingsWindowController>(
                settings(), platform(),
                SettingsView::Surroundings{panels, [](const std::string&) { return new QWidget; }, {}});
        return *made;
    }
    SettingsView& view() { return controller().view(); }
    void open()
    {
        controller().showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&controller().window()));
    }
    QColor corner() { return picture(controller().window()).pixelColor(3, 3); }

    FakeFilePanels panels;
    std::unique_ptr<SettingsWindowController> made;
};

TEST_F(SettingsWindowControllerTest, HasTheWindowOfTheSettings)
{
    const auto& window = controller().window();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("orrinvale Settings"));
    EXPECT_EQ(window.size(), QSize(540, 560));
    EXPECT_EQ(window.minimumSize(), QSize(460, 400));
    EXPECT_TRUE(window.windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_TRUE(window.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_FALSE(window.windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(SettingsWindowControllerTest, ComesInFrontOfWhatIsThere)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    open();
    EXPECT_TRUE(controller().window().isActiveWindow());
}

TEST_F(SettingsWindowControllerTest, OpeningWritesNothing)
{
    fake.userDefaults.values["orrinvale.cpuSensitivity"] = 1.7;
    settings();
    const auto before = fake.userDefaults.values;
    const auto writes = fake.userDefaults.writes;
    open();
    settle();
    controller().window().close();
    open();
    settle();
    made.reset();
    EXPECT_EQ(fake.userDefaults.writes, writes);
    EXPECT_EQ(fake.userDefaults.values, before);
}

TEST_F(SettingsWindowControllerTest, TheSakuraTileDressesTheWindow)
{
    open();
    auto& tile = *view().themeTiles().tiles()[3];
    QTest::mouseClick(&tile, Qt::LeftButton, {}, middleOf(tile));
    settle();
    EXPECT_EQ(view().headerLabel().text(), QStringLiteral("🌸  Settings"));
    EXPECT_EQ(fake.appearance.applied.back(), AppearanceChoice::light);
    EXPECT_TRUE(isNearly(corner(), WindowPalette::of(Look::sakura).window));
    EXPECT_TRUE(tile.isChosen());
    auto& dark = *view().themeTiles().tiles()[1];
    QTest::mouseClick(&dark, Qt::LeftButton, {}, middleOf(dark));
    settle();
    EXPECT_EQ(view().headerLabel().text(), QStringLiteral("⚙️  Settings"));
    EXPECT_TRUE(isNearly(corner(), WindowPalette::of(Look::dark).window));
}

TEST_F(SettingsWindowControllerTest, TheSystemThemeFollowsTheDesktopWhileOpenAndSakuraDoesNot)
{
    open();
    settings().appTheme.set(AppTheme::system);
    settle();
    fake.appearance.switchSystem(true);
    settle();
    EXPECT_TRUE(isNearly(corner(), WindowPalette::of(Look::dark).window));
    settings().appTheme.set(AppTheme::sakura);
    settle();
    const auto before = picture(controller().window());
    fake.appearance.switchSystem(false);
    settle();
    EXPECT_EQ(picture(controller().window()), before);
    EXPECT_TRUE(isNearly(corner(), WindowPalette::of(Look::sakura).window));
}

TEST_F(SettingsWindowControllerTest, IsDressedAnewWhenShown)
{
    open();
    controller().window().close();
    settings().appTheme.set(AppTheme::sakura);
    controller().showWindow();
    EXPECT_EQ(view().headerLabel().text(), QStringLiteral("🌸  Settings"));
}

TEST_F(SettingsWindowControllerTest, ClosingKeepsItsState)
{
    open();
    controller().window().resize(600, 500);
    view().scrollArea().verticalScrollBar()->setValue(300);
    controller().window().close();
    EXPECT_FALSE(controller().window().isVisible());
    settings().notificationsEnabled.set(false);
    settle();
    open();
    EXPECT_EQ(view().scrollArea().verticalScrollBar()->value(), 300);
    EXPECT_EQ(controller().window().size(), QSize(600, 500));
    EXPECT_FALSE(view().notifications().isOn());
}

TEST_F(SettingsWindowControllerTest, EscapeClosesItFromWhereverTheFocusIs)
{
    for (auto* focused : std::initializer_list<QWidget*>{view().themeTiles().tiles()[0], &view().startAtLogin(),
                                                         &view().watchList().addButton()}) {
        open();
        focused->setFocus();
        QTest::keyClick(focused, Qt::Key_Escape);
        EXPECT_FALSE(controller().window().isVisible());
    }
}

TEST_F(SettingsWindowControllerTest, AHeldEscapeClosesThePickerAlone)
{
    open();
    view().watchList().addButton().click();
    settle();
    ASSERT_NE(controller().appPicker(), nullptr);
    hold(Qt::Key_Escape);
    EXPECT_EQ(controller().appPicker(), nullptr);
    EXPECT_TRUE(controller().window().isVisible());
}

TEST_F(SettingsWindowControllerTest, TheColumnScrollsAloneAndTakesItsWholeWidth)
{
    open();
    auto& area = view().scrollArea();
    EXPECT_EQ(area.viewport()->width(), 540);
    EXPECT_EQ(area.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(area.verticalScrollBar()->maximum(), area.widget()->height() - 560);
}

TEST_F(SettingsWindowControllerTest, FollowsTheDesktopsFontWhileOpen)
{
    open();
    const auto before = view().scrollArea().widget()->height();
    {
        const LargerText larger(1.5);
        EXPECT_GT(view().scrollArea().widget()->height(), before);
        EXPECT_NEAR(pixelSizeOf(view().headerLabel().font()), 14 * textScale(), 0.01);
    }
    EXPECT_EQ(view().scrollArea().widget()->height(), before);
}

} // namespace

} // namespace orrinvale
