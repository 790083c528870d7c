// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityLogView.h"

#include "kit/FocusRing.h"
#include "kit/OverlayScrollArea.h"
#include "kit/WindowButton.h"
#include "orrinvale/DayDetailView.h"
#include "orrinvale/HeatmapView.h"
#include "orrinvale/HourBarChartView.h"
#include "tests/interface/WindowFixture.h"

#include <QScrollBar>

namespace orrinvale
{

namespace
{

struct ActivityLogViewTest : InterfaceFixture {
    ActivityLogViewTest()
    {
        view.resize(640, 660);
        view.setTheme(Look::light);
        view.show();
    }
    static QRect shownPlaceOf(const WindowButton& button) { return shownRect(button).translated(button.pos()); }

    LocalCalendar english{"UTC", "en_US"};
    ActivityLogView view{time, english};
};

TEST_F(ActivityLogViewTest, BearsItsTextsToTheCharacter)
{
    EXPECT_EQ(view.titleLabel().text(), QStringLiteral("🍵  Activity Log"));
    EXPECT_EQ(view.statsLabel().text(), QStringLiteral("0 entries"));
    EXPECT_EQ(view.clearButton().accessibleName(), QStringLiteral("Clear"));
    EXPECT_EQ(view.clearButton().symbol(), QStringLiteral("trash"));
    EXPECT_EQ(view.exportButton().accessibleName(), QStringLiteral("Export"));
    EXPECT_EQ(view.exportButton().symbol(), QStringLiteral("square.and.arrow.up"));
}

TEST_F(ActivityLogViewTest, TheEmojiFollowsTheTheme)
{
    view.setTheme(Look::sakura);
    EXPECT_EQ(view.titleLabel().text(), QStringLiteral("🌸  Activity Log"));
    view.setTheme(Look::dark);
    EXPECT_EQ(view.titleLabel().text(), QStringLiteral("🍵  Activity Log"));
}

TEST_F(ActivityLogViewTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(view.titleLabel().geometry().topLeft(), QPoint(20, 18));
    EXPECT_EQ(view.titleLabel().height(), 20);
    EXPECT_EQ(view.statsLabel().geometry().topLeft(), QPoint(20, 39));
    EXPECT_EQ(view.statsLabel().height(), 15);
    const auto clear = shownPlaceOf(view.clearButton());
    const auto exporting = shownPlaceOf(view.exportButton());
    EXPECT_EQ(exporting.right() + 1, 620);
    EXPECT_EQ(exporting.left() - clear.right() - 1, 8);
    EXPECT_EQ(clear.top(), 22);
    EXPECT_EQ(clear.height(), 28);
    EXPECT_EQ(exporting.top(), 22);
    EXPECT_EQ(view.heatmapView().geometry(), QRect(20, 94, 600, 196));
    EXPECT_EQ(view.dayDetailView().geometry(), QRect(20, 306, 600, 334));
}

TEST_F(ActivityLogViewTest, TheHeatmapKeepsItsHeightAndTheDetailTakesTheRest)
{
    view.resize(520, 480);
    EXPECT_EQ(view.heatmapView().geometry(), QRect(20, 94, 480, 196));
    EXPECT_EQ(view.dayDetailView().geometry(), QRect(20, 306, 480, 154));
    EXPECT_EQ(shownPlaceOf(view.exportButton()).right() + 1, 500);
    view.resize(1000, 900);
    EXPECT_EQ(view.heatmapView().geometry(), QRect(20, 94, 960, 196));
    EXPECT_EQ(view.dayDetailView().geometry(), QRect(20, 306, 960, 574));
}

TEST_F(ActivityLogViewTest, TextsHaveTheirSizesWeightsAndColours)
{
    for (const auto look : allLooks) {
        view.setTheme(look);
        const auto& colours = WindowPalette::of(look);
        expectText(view.titleLabel(), {14, QFont::DemiBold}, colours.primaryText);
        expectText(view.statsLabel(), {11, QFont::Normal}, colours.secondaryText);
        EXPECT_EQ(bytes(view.clearButton().ground()), bytes(colours.button));
        EXPECT_EQ(bytes(view.exportButton().ink()), bytes(colours.primaryText));
    }
}

TEST_F(ActivityLogViewTest, TheHeaderLiesOnTheCardColourOverARuleInTheAccent)
{
    for (const auto look : allLooks) {
        view.setTheme(look);
        const auto& colours = WindowPalette::of(look);
        const auto image = picture(view);
        EXPECT_TRUE(isNearly(image.pixelColor(2, 0), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(2, 71), colours.card));
        const auto rule = blended(colours.window, withAlpha(colours.accent, 0.8));
        EXPECT_TRUE(isNearly(image.pixelColor(0, 72), rule));
        EXPECT_TRUE(isNearly(image.pixelColor(639, 73), rule));
        EXPECT_TRUE(isNearly(image.pixelColor(2, 74), colours.window));
        EXPECT_TRUE(isNearly(image.pixelColor(2, 298), colours.window));
        EXPECT_TRUE(isNearly(image.pixelColor(300, 300), colours.window)); // between the cards
    }
}

TEST_F(ActivityLogViewTest, AThemeReachesHeatmapAndDetail)
{
    for (const auto look : allLooks) {
        view.setTheme(look);
        EXPECT_EQ(view.heatmapView().isDark(), look == Look::dark);
        EXPECT_EQ(view.heatmapView().isSakura(), look == Look::sakura);
        const auto bar = look == Look::sakura ? tableColour(0.87, 0.47, 0.60) : tableColour(0.63, 0.75, 0.58);
        EXPECT_EQ(bytes(view.dayDetailView().barChart().barColour()), bar);
        const auto image = picture(view);
        EXPECT_TRUE(isNearly(image.pixelColor(320, 97), WindowPalette::of(look).card));
        EXPECT_TRUE(isNearly(image.pixelColor(320, 309), WindowPalette::of(look).card));
    }
}

TEST_F(ActivityLogViewTest, ClearTurnsDangerousUnderThePointerAndExportDoesNot)
{
    pointAt(view.clearButton());
    pointAt(view.exportButton());
    EXPECT_EQ(bytes(view.clearButton().ink()), bytes(WindowPalette::of(Look::light).danger));
    EXPECT_EQ(bytes(view.exportButton().ink()), bytes(WindowPalette::of(Look::light).primaryText));
}

TEST_F(ActivityLogViewTest, TheKeyboardPagesThroughWhatDoesNotFitInTheDay)
{
    view.resize(520, 480);
    auto& bar = *view.dayDetailView().scrollArea().verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    for (auto* focused : std::initializer_list<QWidget*>{&view.heatmapView(), &view.clearButton()}) {
        QTest::keyClick(focused, Qt::Key_PageDown);
        EXPECT_EQ(bar.value(), std::min(bar.pageStep(), bar.maximum()));
        QTest::keyClick(focused, Qt::Key_PageUp);
        EXPECT_EQ(bar.value(), 0);
    }
}

TEST_F(ActivityLogViewTest, OtherKeysAreLeftToTheWindow)
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QApplication::sendEvent(&view, &escape);
    EXPECT_FALSE(escape.isAccepted());
}

TEST_F(ActivityLogViewTest, LargerTextIsWholeAndKeepsApart)
{
    const LargerText larger(1.5);
    view.resize(520, 480);
    view.setTheme(Look::light);
    expectWhole(view.titleLabel(), 30);
    expectWhole(view.statsLabel(), 23);
    EXPECT_GE(view.titleLabel().y(), 0);
    EXPECT_GT(view.statsLabel().y(), view.titleLabel().geometry().bottom());
    EXPECT_LE(view.statsLabel().geometry().bottom(), 71);
    EXPECT_LT(view.titleLabel().geometry().right(), shownPlaceOf(view.clearButton()).left());
    EXPECT_EQ(shownPlaceOf(view.clearButton()).height(), 37);
    EXPECT_EQ(view.heatmapView().height(), 196);
}

} // namespace

} // namespace orrinvale
