// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/Popover.h"

#include "tests/interface/InterfaceFixture.h"

#include <QAccessible>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace orrinvale
{

namespace
{

const auto ground = QColor(245, 241, 233);
const auto border = QColor(200, 0, 0);
constexpr auto shadow = 16;

struct PopoverTest : InterfaceFixture {
    Popover& make(Popover::Composition composition = Popover::Composition::none, int contentHeight = 700)
    {
        content = new QWidget;
        content->setFixedSize(340, contentHeight);
        button = new QPushButton(content);
        button->setGeometry(20, contentHeight - 60, 100, 40);
        m_popover = std::make_unique<Popover>(content, Popover::Colours{ground, border}, composition,
                                              &QScreen::availableGeometry);
        m_popover->onClose = [this](Popover::Closing closing) { closings.push_back(closing); };
        return *m_popover;
    }
    Popover& open(Popover::Composition composition = Popover::Composition::none, int contentHeight = 700)
    {
        make(composition, contentHeight).showAt({QRect(300, 0, 24, 24), {}});
        QCoreApplication::processEvents();
        return *m_popover;
    }
    Popover& popover() { return *m_popover; }
    void end() { m_popover.reset(); }
    QRect bodyOnScreen() { return popover().body().translated(popover().pos()); }

    QWidget* content = nullptr;
    QPushButton* button = nullptr;
    std::vector<Popover::Closing> closings;

private:
    std::unique_ptr<Popover> m_popover;
};

TEST_F(PopoverTest, IsAFramelessPopupOf340By700)
{
    open();
    EXPECT_EQ(popover().windowType(), Qt::Popup);
    EXPECT_TRUE(popover().windowFlags() & Qt::FramelessWindowHint);
    EXPECT_EQ(popover().size(), QSize(340, 700));
    EXPECT_EQ(popover().body(), QRect(0, 0, 340, 700));
    EXPECT_EQ(popover().windowTitle(), QStringLiteral("orrinvale"));
}

TEST_F(PopoverTest, AShadowLiesAroundItsBodyWhereWindowsAreComposed)
{
    open(Popover::Composition::composited);
    EXPECT_EQ(popover().body(), QRect(shadow, shadow, 340, 700));
    EXPECT_EQ(popover().size(), QSize(340 + 2 * shadow, 700 + 2 * shadow));
    EXPECT_TRUE(popover().testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_TRUE(popover().mask().isEmpty());
}

TEST_F(PopoverTest, StandsByItsAnchorWithOrWithoutAShadow)
{
    for (const auto composition : {Popover::Composition::none, Popover::Composition::composited}) {
        open(composition);
        EXPECT_EQ(bodyOnScreen().topLeft(), QPoint(311 - 170, 28)) << "below the icon";
    }
}

TEST_F(PopoverTest, PaintsABorderOnItsGroundAndRoundsItsCorners)
{
    open();
    const auto image = picture(popover());
    EXPECT_EQ(image.pixelColor(170, 0), border);
    EXPECT_EQ(image.pixelColor(0, 350), border);
    EXPECT_EQ(image.pixelColor(10, 350), ground);
    const auto mask = popover().mask();
    EXPECT_FALSE(mask.contains(QPoint(0, 0)));
    EXPECT_FALSE(mask.contains(QPoint(2, 2)));
    EXPECT_FALSE(mask.contains(QPoint(339, 699)));
    EXPECT_TRUE(mask.contains(QPoint(5, 5)));
    EXPECT_TRUE(mask.contains(QPoint(12, 0)));
}

TEST_F(PopoverTest, TakesOtherColoursWhileOpen)
{
    open();
    popover().setColours({Qt::black, Qt::white});
    const auto image = picture(popover());
    EXPECT_EQ(image.pixelColor(170, 0), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(10, 350), QColor(Qt::black));
}

TEST_F(PopoverTest, EscapeClosesItOnce)
{
    open();
    QTest::keyClick(&popover(), Qt::Key_Escape);
    EXPECT_FALSE(popover().isVisible());
    EXPECT_THAT(closings, ElementsAre(Popover::Closing::escape));
    popover().hide();
    end();
    EXPECT_EQ(closings.size(), 1u);
}

TEST_F(PopoverTest, EscapeClosesItFromWithinAControl)
{
    open();
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Escape);
    EXPECT_THAT(closings, ElementsAre(Popover::Closing::escape));
}

TEST_F(PopoverTest, OtherKeysLeaveItOpen)
{
    open();
    for (const auto key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Down, Qt::Key_PageDown})
        QTest::keyClick(&popover(), key);
    EXPECT_TRUE(popover().isVisible());
    EXPECT_THAT(closings, IsEmpty());
}

TEST_F(PopoverTest, APressElsewhereClosesIt)
{
    for (const auto& elsewhere : {QPoint(-30, 100), QPoint(345, 100), QPoint(100, -5), QPoint(100, 705)}) {
        open();
        QTest::mousePress(&popover(), Qt::LeftButton, {}, elsewhere);
        EXPECT_FALSE(popover().isVisible());
        end();
    }
    EXPECT_THAT(closings, testing::AllOf(testing::SizeIs(4), testing::Each(Popover::Closing::elsewhere)));
}

TEST_F(PopoverTest, ARightPressElsewhereClosesItToo)
{
    open();
    QTest::mouseClick(&popover(), Qt::RightButton, {}, QPoint(-30, 100));
    EXPECT_THAT(closings, ElementsAre(Popover::Closing::elsewhere));
}

TEST_F(PopoverTest, APressInsideLeavesItOpen)
{
    open();
    QTest::mouseClick(content, Qt::LeftButton, {}, QPoint(100, 100));
    QTest::mouseClick(&popover(), Qt::LeftButton, {}, QPoint(170, 1));
    EXPECT_TRUE(popover().isVisible());
}

TEST_F(PopoverTest, APressOnItsShadowIsAPressElsewhere)
{
    open(Popover::Composition::composited);
    QTest::mousePress(&popover(), Qt::LeftButton, {}, QPoint(5, 300));
    EXPECT_THAT(closings, ElementsAre(Popover::Closing::elsewhere));
}

TEST_F(PopoverTest, ItsOwnerClosesIt)
{
    open();
    popover().closeByOwner();
    EXPECT_FALSE(popover().isVisible());
    EXPECT_THAT(closings, ElementsAre(Popover::Closing::owner));
}

TEST_F(PopoverTest, NobodyNeedListenToItsClosing)
{
    open();
    popover().onClose = nullptr;
    popover().closeByOwner();
    EXPECT_FALSE(popover().isVisible());
}

TEST_F(PopoverTest, TellsOfEachPainting)
{
    make();
    auto painted = 0;
    QObject::connect(&popover(), &Popover::framePainted, &popover(), [&] { ++painted; });
    popover().showAt({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return painted > 0; }, 2000));
}

TEST_F(PopoverTest, HigherContentScrollsInsideIt)
{
    open(Popover::Composition::none, 900);
    EXPECT_EQ(popover().size(), QSize(340, 700));
    auto* bar = popover().findChild<QScrollArea*>()->verticalScrollBar();
    EXPECT_EQ(bar->maximum(), 200);
    EXPECT_FALSE(bar->isVisible()) << "it takes no width";
    EXPECT_EQ(content->width(), 340);
}

TEST_F(PopoverTest, IsNeverHigherThanItsContent)
{
    open(Popover::Composition::none, 600);
    EXPECT_EQ(popover().height(), 600);
}

TEST_F(PopoverTest, WhatGetsTheFocusIsScrolledIntoView)
{
    open(Popover::Composition::none, 900);
    popover().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&popover()));
    auto* first = new QPushButton(content);
    first->setGeometry(20, 10, 100, 40);
    first->show();
    QWidget::setTabOrder(first, button);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), button);
    EXPECT_TRUE(popover().rect().contains(QRect(button->mapTo(&popover(), QPoint()), button->size())));
}

TEST_F(PopoverTest, GrowsWithItsContentUpToItsMost)
{
    open(Popover::Composition::none, 600);
    content->setFixedHeight(660);
    QCoreApplication::processEvents();
    EXPECT_EQ(popover().height(), 660);
    content->setFixedHeight(760);
    QCoreApplication::processEvents();
    EXPECT_EQ(popover().height(), 700);
}

TEST_F(PopoverTest, ItsContentHasTheFocusFromTheStartWithoutSayingSo)
{
    make();
    content->setFocusProxy(button);
    popover().showAt({});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&popover()));
    EXPECT_EQ(QApplication::focusWidget(), button);
}

TEST_F(PopoverTest, AssistiveTechnologyFindsItAmongTheWindowsWhileItIsOpen)
{
    auto* application = QAccessible::queryAccessibleInterface(qApp);
    const auto others = application->childCount();
    open();
    ASSERT_EQ(application->childCount(), others + 1);
    auto* window = application->child(others);
    EXPECT_EQ(window->object(), &popover());
    EXPECT_EQ(application->indexOfChild(window), others);
    EXPECT_EQ(window->parent(), application);
    popover().closeByOwner();
    EXPECT_EQ(application->childCount(), others);
    EXPECT_EQ(application->child(others), nullptr);
}

TEST_F(PopoverTest, IsADialogToAssistiveTechnology)
{
    open();
    auto* accessible = QAccessible::queryAccessibleInterface(&popover());
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("orrinvale"));
    EXPECT_EQ(accessible->role(), QAccessible::Dialog);
}

} // namespace

} // namespace orrinvale
