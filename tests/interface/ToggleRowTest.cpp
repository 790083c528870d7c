// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ToggleRow.h"

#include "orrinvale/RowText.h"
#include "tests/interface/WindowFixture.h"

#include <QAccessible>

namespace orrinvale
{

namespace
{

struct ToggleRowTest : InterfaceFixture {
    ToggleRowTest()
    {
        window.resize(538, 120);
        row = new ToggleRow(QStringLiteral("Start at Login"), QStringLiteral("Automatically start orrinvale at login"),
                            &window);
        row->setAnimated(false);
        row->onToggle = [this](bool isOn) { toggled.push_back(isOn); };
        dress(Look::light);
        row->setGeometry(0, 0, 538, row->heightFor(538));
        window.show();
    }
    void dress(Look look)
    {
        auto palette = window.palette();
        palette.setColor(QPalette::Window, WindowPalette::of(look).card);
        window.setPalette(palette);
        row->applyTheme(WindowPalette::of(look));
    }
    // Within the switch.
    QColor pixel(int x, int y)
    {
        return window.grab().toImage().pixelColor(row->pos() + row->switchRect().topLeft() + QPoint(x, y));
    }

    QWidget window;
    ToggleRow* row;
    std::vector<bool> toggled;
};

TEST_F(ToggleRowTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(row->height(), 56);
    EXPECT_EQ(row->switchRect(), QRect(538 - 16 - 36, 18, 36, 20));
    EXPECT_EQ(row->text().x(), 16);
    EXPECT_EQ(row->text().y(), (56 - 33) / 2);
    EXPECT_EQ(row->switchRect().left() - row->text().geometry().right() - 1, 16);
}

TEST_F(ToggleRowTest, AHeldKeyTurnsItOnce)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    row->setFocus();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        hold(key);
    EXPECT_THAT(toggled, ElementsAre(true, false, true));
}

TEST_F(ToggleRowTest, ADoubleClickTurnsItAndBack)
{
    clickQuickly(window, row->geometry().center(), 2);
    EXPECT_THAT(toggled, ElementsAre(true, false));
}

TEST_F(ToggleRowTest, SaysWhatItIs)
{
    EXPECT_EQ(row->text().titleLabel().text(), QStringLiteral("Start at Login"));
    EXPECT_EQ(row->text().subtitleLabel().text(), QStringLiteral("Automatically start orrinvale at login"));
    auto* interface = QAccessible::queryAccessibleInterface(row);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Start at Login"));
    EXPECT_EQ(interface->text(QAccessible::Description), QStringLiteral("Automatically start orrinvale at login"));
    EXPECT_TRUE(interface->state().checkable);
    EXPECT_FALSE(interface->state().checked);
    row->setOn(true);
    EXPECT_TRUE(interface->state().checked);
}

TEST_F(ToggleRowTest, TheSwitchTellsItsStateByColourAndShape)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        dress(look);
        row->setOn(false);
        EXPECT_TRUE(isNearly(pixel(18, 0), colours.controlBorder));
        EXPECT_TRUE(isNearly(pixel(20, 10), colours.controlOff));
        EXPECT_TRUE(isNearly(pixel(3, 10), colours.controlOff)); // 4 from the edge
        EXPECT_TRUE(isNearly(pixel(4, 10), colours.controlBorder, 8));
        EXPECT_TRUE(isNearly(pixel(15, 10), colours.controlBorder, 8)); // 12 wide
        EXPECT_TRUE(isNearly(pixel(16, 10), colours.controlOff));
        EXPECT_TRUE(isNearly(pixel(9, 3), colours.controlOff));
        EXPECT_TRUE(isNearly(pixel(9, 4), colours.controlBorder, 8));
        row->setOn(true);
        EXPECT_TRUE(isNearly(pixel(18, 0), colours.controlOn));
        EXPECT_TRUE(isNearly(pixel(8, 10), colours.controlOn));
        EXPECT_TRUE(isNearly(pixel(17, 10), colours.controlOn));
        EXPECT_TRUE(isNearly(pixel(18, 10), Qt::white, 12)); // 16 wide
        EXPECT_TRUE(isNearly(pixel(33, 10), Qt::white, 12));
        EXPECT_TRUE(isNearly(pixel(34, 10), colours.controlOn)); // 2 from the edge
        EXPECT_TRUE(isNearly(pixel(0, 0), colours.card));        // round
    }
}

TEST_F(ToggleRowTest, AClickAnywhereOnTheRowTurnsIt)
{
    QTest::mouseClick(row, Qt::LeftButton, {}, {5, 5});
    QTest::mouseClick(row, Qt::LeftButton, {}, {200, 40});
    QTest::mouseClick(row, Qt::LeftButton, {}, row->switchRect().center());
    EXPECT_THAT(toggled, ElementsAre(true, false, true));
    EXPECT_TRUE(row->isOn());
}

TEST_F(ToggleRowTest, ItsKeysTurnIt)
{
    QTest::keyClick(row, Qt::Key_Space);
    QTest::keyClick(row, Qt::Key_Return);
    EXPECT_THAT(toggled, ElementsAre(true, false));
}

TEST_F(ToggleRowTest, AssistiveTechnologyTurnsIt)
{
    auto* actions = QAccessible::queryAccessibleInterface(row)->actionInterface();
    ASSERT_THAT(actions->actionNames(), testing::Contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(toggled, ElementsAre(true));
    EXPECT_TRUE(isNearly(pixel(32, 10), Qt::white));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(toggled, ElementsAre(true, false));
    EXPECT_TRUE(isNearly(pixel(5, 10), WindowPalette::of(Look::light).controlBorder));
}

TEST_F(ToggleRowTest, ShowingAStateTellsNobody)
{
    row->setOn(true);
    row->setOn(true);
    row->setOn(false);
    EXPECT_THAT(toggled, IsEmpty());
}

TEST_F(ToggleRowTest, NobodyNeedListen)
{
    row->onToggle = nullptr;
    QTest::mouseClick(row, Qt::LeftButton, {}, {5, 5});
    EXPECT_TRUE(row->isOn());
}

TEST_F(ToggleRowTest, TheKnobTravelsUnlessMotionIsReduced)
{
    row->setAnimated(true);
    QTest::mouseClick(row, Qt::LeftButton, {}, {5, 5});
    EXPECT_FALSE(isNearly(pixel(32, 10), Qt::white));
    EXPECT_TRUE(QTest::qWaitFor([this] { return static_cast<bool>(isNearly(pixel(32, 10), Qt::white)); }, 2000));
    row->setAnimated(false);
    QTest::mouseClick(row, Qt::LeftButton, {}, {5, 5});
    EXPECT_TRUE(isNearly(pixel(5, 10), WindowPalette::of(Look::light).controlBorder));
}

TEST_F(ToggleRowTest, AHiddenOneTurnsAtOnce)
{
    row->setAnimated(true);
    window.hide();
    row->setOn(true);
    EXPECT_TRUE(isNearly(pixel(32, 10), Qt::white));
}

TEST_F(ToggleRowTest, TheRingIsAroundTheSwitch)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    row->clearFocus();
    row->setFocus(Qt::TabFocusReason);
    const auto ring = WindowPalette::of(Look::light).focusRing;
    EXPECT_TRUE(isNearly(pixel(18, -4), ring));
    EXPECT_TRUE(isNearly(pixel(18, -3), ring));
    EXPECT_FALSE(isNearly(pixel(18, -2), ring));
    EXPECT_TRUE(isNearly(pixel(-4, 10), ring, 16));
    QTest::mouseClick(row, Qt::LeftButton, {}, {5, 5});
    EXPECT_FALSE(isNearly(pixel(18, -4), ring));
}

TEST_F(ToggleRowTest, ANewSubtitleIsSaidToo)
{
    row->setSubtitle(QStringLiteral("Stops"));
    EXPECT_EQ(row->text().subtitleLabel().text(), QStringLiteral("Stops"));
    EXPECT_EQ(row->accessibleDescription(), QStringLiteral("Stops"));
}

TEST_F(ToggleRowTest, LargerTextIsWholeAndTheSwitchKeepsItsSize)
{
    const LargerText larger(1.5);
    row->applyTheme(WindowPalette::of(Look::light));
    row->resize(300, row->heightFor(300));
    EXPECT_GT(row->height(), 56);
    EXPECT_EQ(row->switchRect().size(), QSize(36, 20));
    expectWhole(row->text().titleLabel(), 27);
    expectWhole(row->text().subtitleLabel(), 23);
    EXPECT_GE(row->text().y(), 8);
    EXPECT_LE(row->text().geometry().bottom(), row->height() - 8);
    EXPECT_LT(row->text().geometry().right(), row->switchRect().left());
}

} // namespace

} // namespace orrinvale
