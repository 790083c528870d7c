// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/ContinuousSlider.h"

#include "kit/FocusRing.h"
#include "tests/interface/WindowFixture.h"

#include <QAccessible>

namespace orrinvale
{

namespace
{

constexpr auto length = 466;
constexpr auto travel = length - 20.0; // of the knob

struct ContinuousSliderTest : InterfaceFixture {
    ContinuousSliderTest()
    {
        slider.setColours(WindowPalette::of(Look::light));
        slider.setAccessibleName(QStringLiteral("CPU SENSITIVITY"));
        slider.resize(length + 2 * ringRoom, 20 + 2 * ringRoom);
        slider.onChange = [this](double value) { changes.push_back(value); };
        slider.setValue(0.5);
        slider.show();
    }
    // Of the knob's middle, on the slider's line.
    static QPoint at(double value) { return {static_cast<int>(ringRoom + 10 + travel * value), ringRoom + 10}; }
    QColor pixel(QPoint point) { return picture(slider).pixelColor(point); }
    void key(Qt::Key key) { QTest::keyClick(&slider, key); }

    ContinuousSlider slider{nullptr};
    std::vector<double> changes;
};

TEST_F(ContinuousSliderTest, TheKnobMeetsBothEnds)
{
    EXPECT_EQ(slider.knobRect(), QRectF(ringRoom + travel / 2, ringRoom, 20, 20));
    slider.setValue(0);
    EXPECT_EQ(slider.knobRect().left(), ringRoom);
    slider.setValue(1);
    EXPECT_EQ(slider.knobRect().right(), ringRoom + length);
}

TEST_F(ContinuousSliderTest, IsPaintedInItsColours)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        slider.setColours(colours);
        const auto middle = at(0.5);
        EXPECT_TRUE(isNearly(pixel(middle), Qt::white));
        EXPECT_TRUE(isNearly(pixel(middle + QPoint(-10, 0)), colours.controlOn, 40)); // the rim, 1.5 wide
        // Done, 4 high; the rest, 2 high.
        const auto done = at(0.2);
        EXPECT_TRUE(isNearly(pixel(done + QPoint(0, -2)), colours.controlOn));
        EXPECT_TRUE(isNearly(pixel(done + QPoint(0, 1)), colours.controlOn));
        EXPECT_FALSE(isNearly(pixel(done + QPoint(0, -3)), colours.controlOn));
        EXPECT_FALSE(isNearly(pixel(done + QPoint(0, 2)), colours.controlOn));
        const auto rest = at(0.8);
        EXPECT_TRUE(isNearly(pixel(rest + QPoint(0, -1)), colours.controlBorder));
        EXPECT_TRUE(isNearly(pixel(rest), colours.controlBorder));
        EXPECT_FALSE(isNearly(pixel(rest + QPoint(0, -2)), colours.controlBorder));
        EXPECT_FALSE(isNearly(pixel(rest + QPoint(0, 1)), colours.controlBorder));
    }
}

TEST_F(ContinuousSliderTest, AClickOnTheLineJumpsThere)
{
    QTest::mouseClick(&slider, Qt::LeftButton, {}, at(0.25));
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_NEAR(changes[0], 0.25, 1 / travel);
    EXPECT_EQ(slider.value(), changes[0]);
}

TEST_F(ContinuousSliderTest, AClickBesideTheEndsIsAnEnd)
{
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {1, ringRoom + 10});
    QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() - 1, ringRoom + 10});
    EXPECT_THAT(changes, ElementsAre(0, 1));
}

TEST_F(ContinuousSliderTest, HoldingTheKnobChangesNothingYet)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5) + QPoint(7, 3));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.5) + QPoint(7, 3));
    EXPECT_THAT(changes, IsEmpty());
    EXPECT_EQ(slider.value(), 0.5);
}

TEST_F(ContinuousSliderTest, DraggingTakesTheKnobAlongWhereItWasHeld)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5) + QPoint(7, 3));
    movePointer(slider, at(0.75) + QPoint(7, 3), Qt::LeftButton);
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_NEAR(changes[0], 0.75, 1 / travel);
    movePointer(slider, at(0.1) + QPoint(7, 80), Qt::LeftButton);
    EXPECT_NEAR(slider.value(), 0.1, 1 / travel);
    movePointer(slider, {-500, 0}, Qt::LeftButton);
    EXPECT_EQ(slider.value(), 0);
    movePointer(slider, {5000, 0}, Qt::LeftButton);
    EXPECT_EQ(slider.value(), 1);
    EXPECT_EQ(changes.size(), 4u);
}

TEST_F(ContinuousSliderTest, HasNoSteps)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    std::set<double> values;
    for (int x = 0; x < 40; ++x) {
        movePointer(slider, at(0.5) + QPoint(x, 0), Qt::LeftButton);
        values.insert(slider.value());
    }
    EXPECT_EQ(values.size(), 40u);
}

TEST_F(ContinuousSliderTest, OtherButtonsAndHoveringDoNothing)
{
    QTest::mouseClick(&slider, Qt::RightButton, {}, at(0.25));
    movePointer(slider, at(0.9));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ContinuousSliderTest, TheWheelIsLeftToTheColumn)
{
    const QPointF middle = at(0.5);
    QWheelEvent wheel(middle, slider.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ContinuousSliderTest, KeysMoveItBySmallAndLargeSteps)
{
    key(Qt::Key_Right);
    EXPECT_NEAR(slider.value(), 0.51, 1e-9);
    key(Qt::Key_Up);
    EXPECT_NEAR(slider.value(), 0.52, 1e-9);
    key(Qt::Key_Left);
    key(Qt::Key_Down);
    EXPECT_NEAR(slider.value(), 0.50, 1e-9);
    key(Qt::Key_PageUp);
    EXPECT_NEAR(slider.value(), 0.6, 1e-9);
    key(Qt::Key_PageDown);
    EXPECT_NEAR(slider.value(), 0.5, 1e-9);
    key(Qt::Key_End);
    EXPECT_EQ(slider.value(), 1);
    key(Qt::Key_Right);
    EXPECT_EQ(slider.value(), 1);
    key(Qt::Key_Home);
    EXPECT_EQ(slider.value(), 0);
    key(Qt::Key_PageDown);
    EXPECT_EQ(slider.value(), 0);
    EXPECT_EQ(changes.size(), 10u);
}

TEST_F(ContinuousSliderTest, ArrowsFollowTheReadingDirection)
{
    slider.setLayoutDirection(Qt::RightToLeft);
    key(Qt::Key_Left);
    EXPECT_NEAR(slider.value(), 0.51, 1e-9);
}

TEST_F(ContinuousSliderTest, OtherKeysAreLeftToTheWindow)
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QApplication::sendEvent(&slider, &escape);
    EXPECT_FALSE(escape.isAccepted());
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ContinuousSliderTest, ShowingAValueTellsNobody)
{
    slider.setValue(0.25);
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ContinuousSliderTest, AValueOutsideIsKeptAndDrawnAtTheNearerEnd)
{
    slider.setValue(1.7);
    EXPECT_EQ(slider.value(), 1.7);
    EXPECT_EQ(slider.knobRect().right(), ringRoom + length);
    picture(slider);
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(1));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(1));
    EXPECT_EQ(slider.value(), 1.7);
    slider.setValue(-3);
    EXPECT_EQ(slider.knobRect().left(), ringRoom);
    EXPECT_THAT(changes, IsEmpty());
    key(Qt::Key_Right);
    EXPECT_NEAR(slider.value(), 0.01, 1e-9);
}

TEST_F(ContinuousSliderTest, TheRingShowsAfterTheKeyboardAlone)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&slider));
    const auto ring = WindowPalette::of(Look::light).focusRing;
    const auto above = [this] { return pixel(slider.knobRect().center().toPoint() - QPoint(0, 14)); };
    QTest::mouseClick(&slider, Qt::LeftButton, {}, at(0.5));
    EXPECT_FALSE(isNearly(above(), ring));
    key(Qt::Key_Right);
    EXPECT_TRUE(isNearly(above(), ring, 60));
    slider.clearFocus();
    EXPECT_FALSE(isNearly(above(), ring, 60));
    slider.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isNearly(above(), ring, 60));
}

TEST_F(ContinuousSliderTest, AssistiveTechnologyReadsAndSetsItsValue)
{
    auto* interface = QAccessible::queryAccessibleInterface(&slider);
    EXPECT_EQ(interface->role(), QAccessible::Slider);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("CPU SENSITIVITY"));
    auto* value = interface->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 0.5);
    EXPECT_EQ(value->minimumValue().toDouble(), 0);
    EXPECT_EQ(value->maximumValue().toDouble(), 1);
    EXPECT_EQ(value->minimumStepSize().toDouble(), 0.01);
    value->setCurrentValue(0.75);
    EXPECT_THAT(changes, ElementsAre(0.75));
    slider.setValue(0.25);
    EXPECT_EQ(value->currentValue().toDouble(), 0.25);
}

TEST_F(ContinuousSliderTest, NobodyNeedListen)
{
    slider.onChange = nullptr;
    key(Qt::Key_End);
    EXPECT_EQ(slider.value(), 1);
}

} // namespace

} // namespace orrinvale
