// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/FocusRing.h"

#include "tests/interface/WindowFixture.h"

#include <QPainter>

namespace orrinvale
{

namespace
{

constexpr QRect shown(10, 10, 40, 28);

struct FocusRingTest : InterfaceFixture {
    FocusRingTest() : canvas(60, 48, QImage::Format_ARGB32)
    {
        canvas.fill(Qt::white);
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::Antialiasing);
        paintFocusRing(painter, shown, 7, Qt::blue);
    }
    QImage canvas;
};

TEST_F(FocusRingTest, AControlIsLargerThanWhatItShowsByTheRoomForTheRing)
{
    QWidget control;
    placeShown(control, shown);
    EXPECT_EQ(control.geometry(), QRect(6, 6, 48, 36));
    EXPECT_EQ(shownRect(control), QRect(4, 4, 40, 28));
}

TEST_F(FocusRingTest, IsTwoWideAndTwoOff)
{
    const auto middle = shown.center().y();
    EXPECT_EQ(canvas.pixelColor(5, middle), QColor(Qt::white));
    EXPECT_EQ(canvas.pixelColor(6, middle), QColor(Qt::blue));
    EXPECT_EQ(canvas.pixelColor(7, middle), QColor(Qt::blue));
    EXPECT_EQ(canvas.pixelColor(8, middle), QColor(Qt::white));
    EXPECT_EQ(canvas.pixelColor(9, middle), QColor(Qt::white));
    EXPECT_EQ(canvas.pixelColor(shown.center().x(), shown.bottom() + 3), QColor(Qt::blue));
    EXPECT_EQ(canvas.pixelColor(shown.center().x(), shown.bottom() + 4), QColor(Qt::blue));
    EXPECT_EQ(canvas.pixelColor(shown.center().x(), shown.bottom() + 5), QColor(Qt::white));
}

TEST_F(FocusRingTest, ItsCornersAreRounderThanTheControls)
{
    EXPECT_EQ(canvas.pixelColor(6, 6), QColor(Qt::white));
    EXPECT_EQ(canvas.pixelColor(8, 8), QColor(Qt::white));
}

} // namespace

} // namespace orrinvale
