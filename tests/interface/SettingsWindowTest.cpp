// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsWindowController.h"

#include "kit/TextField.h"
#include "kit/WindowButton.h"
#include "orrinvale/AppPickerList.h"
#include "orrinvale/AppPickerSheet.h"
#include "orrinvale/WatchListView.h"
#include "platform/fake/FakeFilePanels.h"
#include "tests/interface/InterfaceFixture.h"

#include <QLineEdit>
#include <QPointer>

namespace orrinvale
{

namespace
{

struct SettingsWindowTest : InterfaceFixture {
    SettingsWindowTest()
    {
        fake.installedApplications.install("org.Blender", "Blender");
        fake.appearance.motionIsReduced = true;
        controller = std::make_unique<SettingsWindowController>(
            settings(), platform(), SettingsView::Surroundings{panels, [](const auto&) { return new QWidget; }, {}});
        controller->showWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&controller->window()));
    }
    AppPickerSheet& openPicker()
    {
        addButton().setFocus(Qt::TabFocusReason);
        QTest::keyClick(&addButton(), Qt::Key_Return);
        settle();
        return *controller->appPicker();
    }
    WindowButton& addButton() const { return controller->view().watchList().addButton(); }
    void press(Qt::Key key) const { QTest::keyClick(controller->window().focusWidget(), key); }

    FakeFilePanels panels;
    std::unique_ptr<SettingsWindowController> controller;
};

TEST_F(SettingsWindowTest, ThePickersApplicationIsAppendedToTheWatchList)
{
    settings().customProcesses.set({{UUID::random(), "org.first", "First", 3}});
    settle();
    openPicker();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(controller->appPicker(), nullptr);
    const auto& processes = settings().customProcesses.get();
    ASSERT_EQ(processes.size(), 2U);
    EXPECT_EQ(processes[1].bundleID, "org.Blender");
    EXPECT_EQ(processes[1].label, "Blender active");
    EXPECT_EQ(processes[1].score, 3);
    settle();
    EXPECT_EQ(controller->view().watchList().rows().size(), 2U);
    EXPECT_TRUE(addButton().hasFocus());
}

TEST_F(SettingsWindowTest, OnePickerIsOpenAtATime)
{
    auto& picker = openPicker();
    addButton().click();
    EXPECT_EQ(controller->appPicker(), &picker);
    EXPECT_EQ(controller->view().findChildren<AppPickerSheet*>().size(), 1);
}

TEST_F(SettingsWindowTest, EscapeClosesThePickerBeforeTheWindow)
{
    openPicker();
    press(Qt::Key_Escape);
    EXPECT_EQ(controller->appPicker(), nullptr);
    EXPECT_TRUE(controller->window().isVisible());
    settle();
    press(Qt::Key_Escape);
    EXPECT_FALSE(controller->window().isVisible());
}

TEST_F(SettingsWindowTest, ThePickerIsFreshEachTime)
{
    auto& first = openPicker();
    first.searchField().line().setText(QStringLiteral("blend"));
    first.list().onChoose(0);
    press(Qt::Key_Escape);
    settle();
    auto& second = openPicker();
    EXPECT_EQ(second.searchField().line().text(), QString());
    EXPECT_EQ(second.labelField().line().text(), QString());
    EXPECT_FALSE(second.picker().selectedApp());
    EXPECT_EQ(fake.installedApplications.scans, 2);
}

TEST_F(SettingsWindowTest, ThePickerGoesWhenTheWindowIsClosed)
{
    fake.appearance.motionIsReduced = false;
    const QPointer<AppPickerSheet> picker = &openPicker();
    controller->window().close();
    EXPECT_EQ(controller->appPicker(), nullptr);
    settle();
    EXPECT_FALSE(picker);
    controller->showWindow();
    settle();
    EXPECT_TRUE(controller->view().findChildren<AppPickerSheet*>().isEmpty());
    EXPECT_TRUE(settings().customProcesses.get().empty());
}

TEST_F(SettingsWindowTest, ThePickerTakesTheThemeThatIsChosenMeanwhile)
{
    auto& picker = openPicker();
    settings().appTheme.set(AppTheme::sakura);
    settle();
    const auto corner = picker.cardRect().topLeft() + QPoint(30, 10);
    EXPECT_EQ(picture(controller->view()).pixelColor(corner), bytes(WindowPalette::of(Look::sakura).card));
}

TEST_F(SettingsWindowTest, MayEndWithThePickerOpen)
{
    openPicker();
    controller.reset();
    settle();
}

} // namespace

} // namespace orrinvale
