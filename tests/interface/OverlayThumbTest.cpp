// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/OverlayThumb.h"

#include "tests/interface/InterfaceFixture.h"

#include <QScrollArea>
#include <QScrollBar>

namespace orrinvale
{

namespace
{

struct OverlayThumbTest : InterfaceFixture {
    OverlayThumb& show(OverlayThumb::Shows when, int contentHeight)
    {
        area.setFrameShape(QFrame::NoFrame);
        thumb = new OverlayThumb(&area, when);
        auto* content = new QWidget;
        content->setFixedSize(50, contentHeight);
        area.setWidget(content);
        area.resize(100, 108);
        area.show();
        QCoreApplication::processEvents();
        return *thumb;
    }
    int value() const { return area.verticalScrollBar()->value(); }

    QScrollArea area;
    OverlayThumb* thumb = nullptr;
};

TEST_F(OverlayThumbTest, IsNotThereWhenEverythingShows)
{
    EXPECT_FALSE(show(OverlayThumb::Shows::wheneverThereIsMore, 108).isVisible());
}

TEST_F(OverlayThumbTest, IsAsLongAsTheShareThatShows)
{
    EXPECT_EQ(show(OverlayThumb::Shows::wheneverThereIsMore, 216).shownRect(), QRect(90, 4, 6, 50));
    area.verticalScrollBar()->setValue(108);
    EXPECT_EQ(thumb->shownRect(), QRect(90, 54, 6, 50));
    EXPECT_TRUE(thumb->isVisible());
    EXPECT_EQ(area.viewport()->width(), 100);
}

TEST_F(OverlayThumbTest, KeepsALeastLength)
{
    EXPECT_EQ(show(OverlayThumb::Shows::wheneverThereIsMore, 108'000).shownRect().height(), 24);
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    EXPECT_EQ(thumb->shownRect().bottom(), 103);
}

TEST_F(OverlayThumbTest, StandsInsideTheFrameOfItsArea)
{
    show(OverlayThumb::Shows::wheneverThereIsMore, 216).setFrameWidth(2);
    EXPECT_EQ(thumb->shownRect(), QRect(88, 6, 6, 48));
}

TEST_F(OverlayThumbTest, FollowsTheAreasSize)
{
    show(OverlayThumb::Shows::wheneverThereIsMore, 216);
    area.resize(100, 58);
    EXPECT_EQ(thumb->shownRect().top(), 4);
    EXPECT_EQ(thumb->shownRect().height(), 24);
    area.resize(100, 300);
    EXPECT_FALSE(thumb->isVisible());
}

TEST_F(OverlayThumbTest, CanBeDragged)
{
    show(OverlayThumb::Shows::wheneverThereIsMore, 216);
    QTest::mousePress(thumb, Qt::LeftButton, {}, {7, 10});
    QTest::mouseMove(thumb, {7, 35});
    EXPECT_EQ(value(), 54);
    QTest::mouseMove(thumb, {7, 300});
    EXPECT_EQ(value(), 108);
    QTest::mouseMove(thumb, {7, -300});
    EXPECT_EQ(value(), 0);
}

TEST_F(OverlayThumbTest, MayShowOnlyWhileScrolling)
{
    EXPECT_FALSE(show(OverlayThumb::Shows::whileScrolling, 216).isVisible());
    area.verticalScrollBar()->setValue(10);
    EXPECT_TRUE(thumb->isVisible());
    EXPECT_TRUE(thumb->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !thumb->isVisible(); }, 3000));
}

} // namespace

} // namespace orrinvale
