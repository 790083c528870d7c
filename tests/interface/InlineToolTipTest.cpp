// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/InlineToolTip.h"

#include "tests/interface/InterfaceFixture.h"

#include <QHelpEvent>
#include <QToolTip>

namespace orrinvale
{

namespace
{

constexpr QRect room(16, 16, 340, 700);

struct InlineToolTipTest : InterfaceFixture {
    InlineToolTipTest()
    {
        window.resize(372, 732);
        owner = new QWidget(&window);
        owner->setGeometry(60, 300, 200, 18);
        owner->setToolTip(QStringLiteral("the whole text"));
        tip = new InlineToolTip(window, room);
        window.show();
        settle();
    }
    void hover(QWidget& widget)
    {
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), widget.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&widget, &help);
    }
    void send(QObject& to, QEvent&& event) { QCoreApplication::sendEvent(&to, &event); }

    QWidget window;
    QWidget* owner = nullptr;
    InlineToolTip* tip = nullptr;
};

TEST_F(InlineToolTipTest, IsAWidgetOfTheWindowBelowItsOwner)
{
    EXPECT_FALSE(tip->isVisible());
    hover(*owner);
    EXPECT_TRUE(tip->isVisible());
    EXPECT_FALSE(tip->isWindow());
    EXPECT_FALSE(QToolTip::isVisible()) << "Qt's own would be a second one";
    EXPECT_EQ(tip->text(), QStringLiteral("the whole text"));
    EXPECT_EQ(tip->pos(), QPoint(60, 300 + 18 + 4));
    EXPECT_EQ(tip->palette(), QToolTip::palette());
}

TEST_F(InlineToolTipTest, LongTextWrapsAndKeepsToTheRoom)
{
    owner->setToolTip(QStringLiteral("many words ").repeated(20));
    hover(*owner);
    EXPECT_EQ(tip->width(), room.width() - 16);
    EXPECT_GT(tip->height(), 3 * tip->fontMetrics().height());
    EXPECT_EQ(tip->x(), room.left() + 8);
}

TEST_F(InlineToolTipTest, StaysInTheRoomAtEachSide)
{
    owner->setGeometry(300, 690, 60, 18);
    hover(*owner);
    EXPECT_EQ(tip->geometry().right(), room.right() - 8);
    EXPECT_EQ(tip->geometry().bottom() + 1, 690 - 4) << "above, where there is no room below";
}

TEST_F(InlineToolTipTest, WhatHasNoTextHasNoTip)
{
    owner->setToolTip({});
    hover(*owner);
    EXPECT_FALSE(tip->isVisible());
}

TEST_F(InlineToolTipTest, TakesThatOfTheNearestAroundThePointer)
{
    auto* inner = new QWidget(owner);
    inner->show();
    hover(*inner);
    EXPECT_TRUE(tip->isVisible());
    EXPECT_EQ(tip->text(), QStringLiteral("the whole text"));
}

TEST_F(InlineToolTipTest, GoesWithThePointerAPressTheWheelAndAKey)
{
    const auto leave = [&] { send(*owner, QEvent(QEvent::Leave)); };
    const auto press = [&] { QTest::mousePress(owner, Qt::LeftButton); };
    const auto wheel = [&] {
        send(*owner, QWheelEvent({}, {}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    };
    const auto key = [&] { QTest::keyPress(&window, Qt::Key_Tab); };
    for (const auto& event : std::vector<std::function<void()>>{leave, press, wheel, key}) {
        hover(*owner);
        ASSERT_TRUE(tip->isVisible());
        event();
        EXPECT_FALSE(tip->isVisible());
    }
}

TEST_F(InlineToolTipTest, GoesWithItsOwner)
{
    hover(*owner);
    owner->hide();
    EXPECT_FALSE(tip->isVisible());
    owner->show();
    hover(*owner);
    delete owner;
    EXPECT_FALSE(tip->isVisible());
}

TEST_F(InlineToolTipTest, StaysWhenAnEarlierOwnerGoes)
{
    auto* other = new QWidget(&window);
    other->setToolTip(QStringLiteral("another"));
    hover(*owner);
    hover(*other);
    delete owner;
    EXPECT_TRUE(tip->isVisible());
}

TEST_F(InlineToolTipTest, StaysWhenThePointerLeavesAnotherWidget)
{
    QWidget other(&window);
    hover(*owner);
    send(other, QEvent(QEvent::Leave));
    EXPECT_TRUE(tip->isVisible());
}

TEST_F(InlineToolTipTest, LeavesOtherWindowsTheirOwn)
{
    QWidget another;
    another.setToolTip(QStringLiteral("of another window"));
    another.show();
    hover(another);
    EXPECT_FALSE(tip->isVisible());
    QToolTip::hideText();
}

TEST_F(InlineToolTipTest, LetsClicksThrough)
{
    hover(*owner);
    EXPECT_TRUE(tip->testAttribute(Qt::WA_TransparentForMouseEvents));
}

} // namespace

} // namespace orrinvale
