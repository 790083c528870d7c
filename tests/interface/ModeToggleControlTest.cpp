// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ModeToggleControl.h"

#include "kit/Typography.h"
#include "tests/interface/InterfaceFixture.h"

#include <QAccessible>
#include <QFontMetricsF>

namespace orrinvale
{

namespace
{

const auto green = tableColour(0.29, 0.55, 0.22);
const auto usualText = tableColour(0.45, 0.43, 0.40);
constexpr auto highlight = QColor(0, 0, 255);
constexpr auto highlightWhileHovered = QColor(0, 0, 255, 26);
constexpr auto highlightWhilePressed = QColor(0, 0, 255, 46);
const QStringList titles{QStringLiteral("Smart"), QStringLiteral("Always Awake"), QStringLiteral("Off")};

// The control as it stands in the popover: a track of 300 by 36 and 4 around it.
struct ModeToggleControlTest : InterfaceFixture {
    ModeToggleControlTest()
    {
        ModeToggleControl::Colours colours;
        colours.track = QColor(250, 250, 250);
        colours.separator = QColor(200, 200, 200);
        colours.background = QColor(240, 240, 240);
        colours.segment.highlight = highlight;
        colours.segment.focusRing = QColor(255, 0, 0);
        control.setColours(colours);
        control.resize(308, 44);
        control.show();
        control.onSelect = [this](int index) { chosen.push_back(index); };
    }
    ModeToggleButton& segment(int index) { return *control.buttons().at(index); }
    QAccessibleInterface& accessible(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }
    std::vector<bool> selection()
    {
        std::vector<bool> selected;
        for (auto* button : control.buttons())
            selected.push_back(button->isSelected());
        return selected;
    }
    void activate()
    {
        control.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&control));
        segment(0).clearFocus();
    }

    ModeToggleControl control{titles, nullptr};
    std::vector<int> chosen;
};

TEST(SegmentRects, AreOfEqualWidthFourApartAndFillTheHeight)
{
    EXPECT_THAT(segmentRects({296, 32}, 3, 0),
                ElementsAre(QRect(0, 0, 96, 32), QRect(100, 0, 96, 32), QRect(200, 0, 96, 32)));
    EXPECT_THAT(segmentRects({300, 36}, 3, 2),
                ElementsAre(QRect(2, 2, 96, 32), QRect(102, 2, 96, 32), QRect(202, 2, 96, 32)));
}

TEST(SegmentRects, TheLastOneEndsAtTheTrailingEdge)
{
    for (const auto width : {296, 297, 298, 301}) {
        const auto rects = segmentRects({width, 32}, 3, 0);
        EXPECT_EQ(rects.front().left(), 0);
        EXPECT_EQ(rects.back().right() + 1, width);
        EXPECT_EQ(rects[0].width(), rects[1].width());
    }
}

TEST_F(ModeToggleControlTest, HasASegmentForEachTitleAndTheFirstIsSelected)
{
    ASSERT_EQ(control.buttons().size(), 3u);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(segment(i).text(), titles[i]);
    EXPECT_EQ(control.selectedIndex(), 0);
    EXPECT_THAT(selection(), ElementsAre(true, false, false));
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(ModeToggleControlTest, SegmentsAreInsetByTwoFromTheTrack)
{
    EXPECT_EQ(segment(0).geometry(), QRect(6, 6, 96, 32));
    EXPECT_EQ(segment(1).geometry(), QRect(106, 6, 96, 32));
    EXPECT_EQ(segment(2).geometry(), QRect(206, 6, 96, 32));
    EXPECT_EQ(segment(0).minimumWidth(), 30);
}

TEST_F(ModeToggleControlTest, SelectShowsOneSegmentAsChosenAndReportsNothing)
{
    control.select(2);
    EXPECT_EQ(control.selectedIndex(), 2);
    EXPECT_THAT(selection(), ElementsAre(false, false, true));
    control.select(1);
    EXPECT_THAT(selection(), ElementsAre(false, true, false));
    control.select(1);
    EXPECT_THAT(selection(), ElementsAre(false, true, false));
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(ModeToggleControlTest, AnIndexOfNoSegmentChangesNothing)
{
    control.select(1);
    for (const auto index : {3, 4, -1, 1000, -1000}) {
        control.select(index);
        EXPECT_EQ(control.selectedIndex(), 1);
        EXPECT_THAT(selection(), ElementsAre(false, true, false));
    }
}

TEST_F(ModeToggleControlTest, TheSelectedSegmentIsGreenWithWhiteText)
{
    control.select(1);
    EXPECT_EQ(bytes(segment(1).background()), green);
    EXPECT_EQ(bytes(segment(1).textColour()), QColor(Qt::white));
    for (const auto other : {0, 2}) {
        EXPECT_EQ(segment(other).background().alpha(), 0);
        EXPECT_EQ(bytes(segment(other).textColour()), usualText);
    }
}

TEST_F(ModeToggleControlTest, OtherSegmentsTakeTheTextColourOfTheTheme)
{
    ModeToggleControl::Colours colours;
    colours.segment.textColor = white(0.88);
    control.setColours(colours);
    EXPECT_EQ(bytes(segment(1).textColour()), QColor(0xe0, 0xe0, 0xe0));
    EXPECT_EQ(bytes(segment(0).textColour()), QColor(Qt::white));
}

TEST_F(ModeToggleControlTest, HoverTintsAnUnselectedSegmentAndGoesWithThePointer)
{
    pointAt(segment(1));
    EXPECT_EQ(bytes(segment(1).background()), highlightWhileHovered);
    EXPECT_EQ(bytes(segment(1).textColour()), usualText);
    pointAway(segment(1));
    EXPECT_EQ(segment(1).background().alpha(), 0);
}

TEST_F(ModeToggleControlTest, HoverDoesNotChangeTheSelectedSegment)
{
    pointAt(segment(0));
    EXPECT_EQ(bytes(segment(0).background()), green);
    pointAway(segment(0));
    EXPECT_EQ(bytes(segment(0).background()), green);
}

TEST_F(ModeToggleControlTest, ASegmentChosenUnderThePointerIsStyledAsSelected)
{
    pointAt(segment(1));
    QTest::mouseClick(&segment(1), Qt::LeftButton);
    EXPECT_EQ(bytes(segment(1).background()), green);
    control.select(0);
    EXPECT_EQ(bytes(segment(1).background()), highlightWhileHovered) << "still under the pointer";
}

TEST_F(ModeToggleControlTest, PressTintsAnUnselectedSegmentOnly)
{
    QTest::mousePress(&segment(2), Qt::LeftButton);
    EXPECT_EQ(bytes(segment(2).background()), highlightWhilePressed);
    QTest::mouseRelease(&segment(2), Qt::LeftButton);
    QTest::mousePress(&segment(2), Qt::LeftButton);
    EXPECT_EQ(bytes(segment(2).background()), green);
    QTest::mouseRelease(&segment(2), Qt::LeftButton);
}

TEST_F(ModeToggleControlTest, ATapSelectsAndThenReports)
{
    control.onSelect = [this](int index) {
        EXPECT_EQ(control.selectedIndex(), index);
        chosen.push_back(index);
    };
    for (const auto index : {2, 1, 0})
        QTest::mouseClick(&segment(index), Qt::LeftButton);
    EXPECT_THAT(chosen, ElementsAre(2, 1, 0));
}

TEST_F(ModeToggleControlTest, ATapOnTheSelectedSegmentIsReportedAndLeavesItSelected)
{
    QTest::mouseClick(&segment(0), Qt::LeftButton);
    EXPECT_THAT(chosen, ElementsAre(0));
    EXPECT_THAT(selection(), ElementsAre(true, false, false));
}

TEST_F(ModeToggleControlTest, TheButtonUpDecides)
{
    QTest::mousePress(&segment(1), Qt::LeftButton);
    EXPECT_THAT(chosen, IsEmpty());
    QTest::mouseMove(&segment(1), QPoint(500, 500));
    QTest::mouseRelease(&segment(1), Qt::LeftButton, {}, QPoint(500, 500));
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_THAT(selection(), ElementsAre(true, false, false));
}

TEST_F(ModeToggleControlTest, ATapWithNobodyListeningStillSelects)
{
    control.onSelect = nullptr;
    QTest::mouseClick(&segment(2), Qt::LeftButton);
    EXPECT_EQ(control.selectedIndex(), 2);
}

TEST_F(ModeToggleControlTest, ArrowsHomeAndEndChooseAndReport)
{
    struct Row {
        Qt::Key key;
        int index;
    };
    for (const auto& row : {Row{Qt::Key_Right, 1}, Row{Qt::Key_Down, 2}, Row{Qt::Key_Left, 1}, Row{Qt::Key_Up, 0},
                            Row{Qt::Key_End, 2}, Row{Qt::Key_Home, 0}}) {
        QTest::keyClick(&segment(control.selectedIndex()), row.key);
        EXPECT_EQ(control.selectedIndex(), row.index);
    }
    EXPECT_THAT(chosen, ElementsAre(1, 2, 1, 0, 2, 0));
}

TEST_F(ModeToggleControlTest, ArrowsStopAtTheEnds)
{
    QTest::keyClick(&segment(0), Qt::Key_Left);
    QTest::keyClick(&segment(0), Qt::Key_Home);
    control.select(2);
    QTest::keyClick(&segment(2), Qt::Key_Right);
    QTest::keyClick(&segment(2), Qt::Key_End);
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_EQ(control.selectedIndex(), 2);
}

TEST_F(ModeToggleControlTest, AHeldArrowChoosesTheNextSegmentOnly)
{
    activate();
    segment(0).setFocus(Qt::TabFocusReason);
    hold(Qt::Key_Right);
    EXPECT_THAT(chosen, ElementsAre(1));
}

TEST_F(ModeToggleControlTest, SpaceReturnAndEnterTapTheSegment)
{
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&segment(0), key);
    EXPECT_THAT(chosen, ElementsAre(0, 0, 0));
}

TEST_F(ModeToggleControlTest, IsOneStopOfTheTabKeyAtTheSelectedSegment)
{
    control.select(1);
    EXPECT_EQ(segment(1).focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(segment(0).focusPolicy() & Qt::TabFocus, 0);
    EXPECT_EQ(segment(2).focusPolicy() & Qt::TabFocus, 0);
    EXPECT_EQ(control.focusProxy(), &segment(1));
}

TEST_F(ModeToggleControlTest, TheFocusFollowsTheArrowsAndShowsItsRing)
{
    activate();
    segment(0).setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(segment(0).showsFocusRing());
    QTest::keyClick(&segment(0), Qt::Key_Right);
    EXPECT_EQ(QApplication::focusWidget(), &segment(1));
    EXPECT_TRUE(segment(1).showsFocusRing());
    EXPECT_FALSE(segment(0).showsFocusRing());
}

TEST_F(ModeToggleControlTest, TheFocusRingLiesOutsideAGapOfTwoAndOnlyAfterTheKeyboard)
{
    activate();
    const QPoint onRing(3, 22); // the first segment begins at 6
    segment(0).setFocus(Qt::MouseFocusReason);
    EXPECT_NE(picture(control).pixelColor(onRing), QColor(255, 0, 0));
    segment(0).clearFocus();
    segment(0).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(picture(control).pixelColor(onRing), QColor(255, 0, 0));
    EXPECT_EQ(picture(control).pixelColor(5, 22), QColor(240, 240, 240)) << "the gap";
    QTest::mouseClick(&segment(0), Qt::LeftButton);
    EXPECT_NE(picture(control).pixelColor(onRing), QColor(255, 0, 0));
}

TEST_F(ModeToggleControlTest, PaintsATrackOfRadiusTenAndSegmentsOfRadiusEight)
{
    const auto image = picture(control);
    EXPECT_EQ(image.pixelColor(154, 4), QColor(200, 200, 200)) << "the hairline";
    EXPECT_EQ(image.pixelColor(104, 22), QColor(250, 250, 250)) << "between two segments";
    EXPECT_EQ(image.pixelColor(7, 22), green) << "the selected segment";
    EXPECT_NE(image.pixelColor(6, 6), green) << "its rounded corner";
    // At 45 degrees a corner of radius r leaves 0.29 r of both sides free.
    EXPECT_NE(image.pixelColor(6 + 1, 6 + 1), green);
    EXPECT_EQ(image.pixelColor(6 + 3, 6 + 3), green);
}

TEST_F(ModeToggleControlTest, LabelsAre12PixelsMediumAndSemiboldWhenSelected)
{
    EXPECT_NEAR(pixelSizeOf(segment(1).labelFont()), 12, 0.01);
    EXPECT_EQ(segment(1).labelFont().weight(), QFont::Medium);
    EXPECT_NEAR(pixelSizeOf(segment(0).labelFont()), 12, 0.01);
    EXPECT_EQ(segment(0).labelFont().weight(), QFont::DemiBold);
}

TEST_F(ModeToggleControlTest, LabelsGrowWithTheTextAndAreWhole)
{
    for (const auto scale : {1.0, 1.1, 1.25, 1.4, 1.5}) {
        control.setScale(scale);
        control.resize(308, control.trackHeightFor(300) + 8);
        for (auto* button : control.buttons()) {
            SCOPED_TRACE(testing::Message() << button->text().toStdString() << " at " << scale);
            const auto pixels = pixelSizeOf(button->labelFont());
            EXPECT_LE(pixels, 12 * scale + 0.01);
            EXPECT_GE(pixels, 12 * scale * 0.9 - 0.01);
            const QFontMetricsF metrics(scaledFont(pixels, QFont::DemiBold, 0, 1));
            const auto room = QRectF(button->rect()).adjusted(0, 2, 0, -2);
            const auto text = metrics.boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, button->text());
            EXPECT_LE(text.width(), room.width());
            EXPECT_LE(text.height(), room.height()) << "2 above and below";
        }
    }
}

TEST_F(ModeToggleControlTest, ATrackIsAsItWasDrawnAndHigherOnlyForTwoLines)
{
    EXPECT_EQ(control.trackHeightFor(300), 36);
    control.setScale(1.5);
    EXPECT_GE(control.trackHeightFor(300), 50);
    EXPECT_LE(control.trackHeightFor(300), 56);
    EXPECT_EQ(control.trackHeightFor(600), 44) << "where one line is enough";
}

TEST_F(ModeToggleControlTest, ALabelOfTwoLinesIsPaintedOnBoth)
{
    control.setScale(1.5);
    control.resize(308, control.trackHeightFor(300) + 8);
    const auto image = picture(control);
    const auto inkedRows = [&image](const QRect& part) {
        auto rows = 0;
        for (auto y = part.top(); y <= part.bottom(); ++y) {
            auto isInked = false;
            for (auto x = part.left(); x <= part.right(); ++x)
                isInked |= image.pixelColor(x, y).lightness() < 180;
            rows += isInked;
        }
        return rows;
    };
    const auto middle = segment(1).geometry();
    EXPECT_GT(inkedRows(middle.adjusted(0, 0, 0, -middle.height() / 2)), 10) << "Always";
    EXPECT_GT(inkedRows(middle.adjusted(0, middle.height() / 2, 0, 0)), 10) << "Awake";
}

TEST_F(ModeToggleControlTest, TellsAssistiveTechnologyOfRadioButtons)
{
    control.select(1);
    EXPECT_EQ(accessible(control).text(QAccessible::Name), QStringLiteral("Mode"));
    EXPECT_EQ(accessible(control).role(), QAccessible::Grouping);
    for (int i = 0; i < 3; ++i) {
        auto& button = accessible(segment(i));
        EXPECT_EQ(button.text(QAccessible::Name), titles[i]);
        EXPECT_EQ(button.role(), QAccessible::RadioButton);
        EXPECT_EQ(bool(button.state().checked), i == 1) << i;
    }
}

TEST_F(ModeToggleControlTest, AssistiveTechnologyCanChoose)
{
    auto* actions = accessible(segment(2)).actionInterface();
    ASSERT_THAT(actions->actionNames(), testing::Contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(chosen, ElementsAre(2));
    EXPECT_THAT(selection(), ElementsAre(false, false, true));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(selection(), ElementsAre(false, false, true)) << "one is always chosen";
}

} // namespace

} // namespace orrinvale
