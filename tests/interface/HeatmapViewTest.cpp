// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HeatmapView.h"

#include "base/Timestamp.h"
#include "orrinvale/ActivityPalette.h"
#include "tests/interface/WindowFixture.h"

#include <QFontMetricsF>

namespace orrinvale
{

namespace
{

using Category = PersistedStateCategory;

constexpr QSize size(600, 196);
constexpr auto gridLeft = 44 + 142; // (600 - 316) / 2 to the right of the weekday words

Instant at(const char* timestamp)
{
    return timestampFromText(timestamp).value();
}

struct HeatmapViewTest : InterfaceFixture {
    HeatmapViewTest()
    {
        time.setWallClock(at("2026-10-28T15:00:00Z")); // a Wednesday: column 16, row 4
        view = std::make_unique<HeatmapView>(time, english, nullptr);
        view->resize(size);
        view->onSelectDay = [this](Instant date) { selected.push_back(english.dateKey(date)); };
    }
    void log(int count, const char* timestamp, Category category = Category::awake)
    {
        for (int i = 0; i < count; ++i)
            entries.push_back({UUID::random(), at(timestamp) + std::chrono::seconds(i), "m", category});
        view->setEntries(entries);
    }
    const HeatmapCell& cell(const std::string& key)
    {
        picture(*view);
        for (const auto& each : view->cellRects())
            if (each.day.dateKey == key)
                return each;
        ADD_FAILURE() << key << " is not drawn";
        return view->cellRects().front();
    }
    QPoint middleOfCell(const std::string& key) { return view->cellOnScreen(cell(key)).center().toPoint(); }
    QColor colourOf(const std::string& key) { return picture(*view).pixelColor(middleOfCell(key)); }
    void click(QPoint point, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(view.get(), button, {}, point);
    }
    QString hover(QPoint point) { return toolTipAt(*view, point); }
    void follow()
    {
        view->onSelectDay = [this](Instant date) {
            selected.push_back(english.dateKey(date));
            view->setSelectedDate(date);
        };
    }

    LocalCalendar english{"UTC", "en_US"};
    std::unique_ptr<HeatmapView> view;
    std::vector<ActivityEntry> entries;
    std::vector<std::string> selected;
};

TEST_F(HeatmapViewTest, AnEmptyLogDrawsEveryDayAtLevelZero)
{
    picture(*view);
    EXPECT_EQ(view->cellRects().size(), 16u * 7 + 4);
    EXPECT_EQ(view->cellRects().front().day.dateKey, "2026-07-05");
    EXPECT_EQ(view->cellRects().back().day.dateKey, "2026-10-28");
    for (const auto& each : view->cellRects()) {
        EXPECT_TRUE(isNearly(colourOf(each.day.dateKey), tableColour(0.90, 0.89, 0.87)));
        EXPECT_THAT(view->tooltipOf(each).toStdString(), testing::EndsWith(" — No activity"));
    }
}

TEST_F(HeatmapViewTest, TheRectanglesAreThoseOfTheLastDrawing)
{
    EXPECT_THAT(view->cellRects(), IsEmpty());
    EXPECT_EQ(cell("2026-10-28").rect, (Rect{gridLeft + 15 * 16.0, 196 - (15 * 4 + 50) - 12.0, 12, 12}));
    view->resize(340, 196); // too narrow to be centred by more than 12
    EXPECT_EQ(cell("2026-10-28").rect.x, 44 + 12 + 15 * 16.0);
    view->resize(300, 196);
    EXPECT_EQ(cell("2026-10-28").rect.x, 44 + 15 * 16.0);
}

TEST_F(HeatmapViewTest, ADaysColourFollowsItsCount)
{
    const std::array<std::pair<int, int>, 8> levels{{{0, 0}, {1, 1}, {2, 1}, {3, 2}, {5, 2}, {6, 3}, {9, 3}, {10, 4}}};
    for (std::size_t i = 0; i < levels.size(); ++i)
        log(levels[i].first, ("2026-10-1" + std::to_string(i) + "T08:00:00Z").c_str());
    for (const auto& [isDark, isSakura] : {std::pair{false, false}, {true, false}, {false, true}, {true, true}}) {
        view->setTheme(isDark, isSakura);
        const auto colours = ActivityPalette::of(isDark, isSakura);
        for (std::size_t i = 0; i < levels.size(); ++i)
            EXPECT_TRUE(isNearly(colourOf("2026-10-1" + std::to_string(i)),
                                 colours.levels[static_cast<std::size_t>(levels[i].second)]))
                << levels[i].first;
    }
}

TEST_F(HeatmapViewTest, OnlyAwakeEntriesShade)
{
    log(4, "2026-10-20T08:00:00Z", Category::idle);
    log(4, "2026-10-20T09:00:00Z", Category::cooldown);
    EXPECT_EQ(cell("2026-10-20").day.count, 0);
    log(1, "2026-10-20T10:00:00Z");
    EXPECT_EQ(cell("2026-10-20").day.count, 1);
}

TEST_F(HeatmapViewTest, EmptyingTheLogEmptiesTheGrid)
{
    log(10, "2026-10-20T08:00:00Z");
    EXPECT_EQ(cell("2026-10-20").day.level(), 4);
    view->setEntries({});
    EXPECT_EQ(cell("2026-10-20").day.level(), 0);
    EXPECT_TRUE(isNearly(colourOf("2026-10-20"), tableColour(0.90, 0.89, 0.87)));
}

TEST_F(HeatmapViewTest, TheSelectedDayHasARingAroundACleanGap)
{
    for (const auto isSakura : {false, true}) {
        view->setTheme(false, isSakura);
        view->setSelectedDate(at("2026-07-07T00:00:00Z"));
        const auto rect = view->cellOnScreen(cell("2026-07-07")).toRect();
        const auto image = picture(*view);
        const auto ring = ActivityPalette::of(false, isSakura).selectionRing;
        const auto card = WindowPalette::of(isSakura ? Look::sakura : Look::light).card;
        const auto middle = rect.center().y();
        // The line lies 0.75 to 2.25 outside: one whole pixel, and a quarter each of its neighbours.
        EXPECT_TRUE(isNearly(image.pixelColor(rect.left() - 2, middle), ring));
        EXPECT_TRUE(isNearly(image.pixelColor(rect.left() - 1, middle), blended(card, withAlpha(ring, 0.25)), 6));
        EXPECT_TRUE(isNearly(image.pixelColor(rect.left() - 3, middle), blended(card, withAlpha(ring, 0.25)), 6));
        EXPECT_TRUE(isNearly(image.pixelColor(rect.left() - 4, middle), card));
        EXPECT_TRUE(isNearly(image.pixelColor(rect.center().x(), rect.top() - 2), ring));
        EXPECT_TRUE(isNearly(image.pixelColor(rect.right() + 2, middle), ring));
    }
}

TEST_F(HeatmapViewTest, OneDayAloneHasTheRing)
{
    view->setSelectedDate(at("2026-10-20T23:59:59Z"));
    picture(*view);
    for (const auto& each : view->cellRects())
        EXPECT_EQ(view->isSelected(each), each.day.dateKey == "2026-10-20");
    view->setSelectedDate(at("2025-01-01T00:00:00Z")); // not drawn
    picture(*view);
    for (const auto& each : view->cellRects())
        EXPECT_FALSE(view->isSelected(each));
}

TEST_F(HeatmapViewTest, TheFirstSelectedDayIsToday)
{
    EXPECT_TRUE(view->isSelected(cell("2026-10-28")));
}

TEST_F(HeatmapViewTest, AClickSelectsTheDay)
{
    click(middleOfCell("2026-10-20"));
    EXPECT_THAT(selected, ElementsAre("2026-10-20"));
    const auto rect = view->cellOnScreen(cell("2026-07-05")).toRect();
    click(rect.topLeft());
    click(rect.bottomRight());
    EXPECT_THAT(selected, ElementsAre("2026-10-20", "2026-07-05", "2026-07-05"));
}

TEST_F(HeatmapViewTest, AClickBetweenTheCellsSelectsNothing)
{
    const auto rect = view->cellOnScreen(cell("2026-10-20")).toRect();
    click(rect.topRight() + QPoint(2, 4));
    click(rect.bottomLeft() + QPoint(4, 2));
    click({3, 3});
    click({590, 190});
    EXPECT_THAT(selected, IsEmpty());
}

TEST_F(HeatmapViewTest, ADayAfterTodayCannotBeClicked)
{
    const auto today = middleOfCell("2026-10-28");
    click(today + QPoint(0, 15));
    click(today + QPoint(0, -15 * 4)); // row 0 of the last column: next Saturday
    EXPECT_THAT(selected, IsEmpty());
}

TEST_F(HeatmapViewTest, OtherButtonsSelectNothing)
{
    click(middleOfCell("2026-10-20"), Qt::RightButton);
    click(middleOfCell("2026-10-20"), Qt::MiddleButton);
    EXPECT_THAT(selected, IsEmpty());
}

TEST_F(HeatmapViewTest, NobodyNeedListenToAClick)
{
    const auto where = middleOfCell("2026-10-20");
    view->onSelectDay = nullptr;
    click(where);
}

TEST_F(HeatmapViewTest, APointingHandStandsOverEachDay)
{
    const auto rect = view->cellOnScreen(cell("2026-10-20")).toRect();
    movePointer(*view, rect.center());
    EXPECT_EQ(view->cursor().shape(), Qt::PointingHandCursor);
    movePointer(*view, rect.topRight() + QPoint(2, 4));
    EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(HeatmapViewTest, EachDayHasItsTooltip)
{
    log(1, "2026-10-05T08:00:00Z");
    log(2, "2026-10-06T08:00:00Z");
    EXPECT_EQ(hover(middleOfCell("2026-10-04")), plainToolTip(QStringLiteral("Oct 4, 2026 — No activity")));
    EXPECT_EQ(hover(middleOfCell("2026-10-05")), plainToolTip(QStringLiteral("Oct 5, 2026 — 1 active period")));
    EXPECT_EQ(hover(middleOfCell("2026-10-06")), plainToolTip(QStringLiteral("Oct 6, 2026 — 2 active periods")));
    EXPECT_EQ(hover(middleOfCell("2026-10-06") + QPoint(8, 0)), QString());
    EXPECT_EQ(hover({2, 2}), QString());
}

TEST_F(HeatmapViewTest, TooltipsFollowTheLog)
{
    hover(middleOfCell("2026-10-05"));
    log(1, "2026-10-05T08:00:00Z");
    EXPECT_EQ(hover(middleOfCell("2026-10-05")), plainToolTip(QStringLiteral("Oct 5, 2026 — 1 active period")));
    view->setEntries({});
    EXPECT_EQ(hover(middleOfCell("2026-10-05")), plainToolTip(QStringLiteral("Oct 5, 2026 — No activity")));
}

TEST_F(HeatmapViewTest, TheArrowsMoveTheSelectedDayAlongTheGrid)
{
    follow();
    view->setSelectedDate(at("2026-10-20T00:00:00Z"));
    QTest::keyClick(view.get(), Qt::Key_Left);
    QTest::keyClick(view.get(), Qt::Key_Up);
    QTest::keyClick(view.get(), Qt::Key_Right);
    QTest::keyClick(view.get(), Qt::Key_Down);
    QTest::keyClick(view.get(), Qt::Key_Home);
    QTest::keyClick(view.get(), Qt::Key_End);
    EXPECT_THAT(selected,
                ElementsAre("2026-10-13", "2026-10-12", "2026-10-19", "2026-10-20", "2026-07-05", "2026-10-28"));
}

TEST_F(HeatmapViewTest, TheArrowsNeverReachADayThatIsNotDrawn)
{
    follow();
    QTest::keyClick(view.get(), Qt::Key_Right);
    QTest::keyClick(view.get(), Qt::Key_Down);
    for (const auto& key : selected)
        EXPECT_EQ(key, "2026-10-28");
    view->setSelectedDate(at("2026-10-23T00:00:00Z")); // a Friday: next week's is not there yet
    selected.clear();
    QTest::keyClick(view.get(), Qt::Key_Right);
    for (const auto& key : selected)
        EXPECT_EQ(key, "2026-10-23");
}

TEST_F(HeatmapViewTest, EnterSelectsTheDayAgain)
{
    view->setSelectedDate(at("2026-10-20T00:00:00Z"));
    QTest::keyClick(view.get(), Qt::Key_Return);
    QTest::keyClick(view.get(), Qt::Key_Enter);
    EXPECT_THAT(selected, ElementsAre("2026-10-20", "2026-10-20"));
}

TEST_F(HeatmapViewTest, OtherKeysAreLeftToTheWindow)
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QApplication::sendEvent(view.get(), &escape);
    EXPECT_FALSE(escape.isAccepted());
    EXPECT_THAT(selected, IsEmpty());
}

TEST_F(HeatmapViewTest, TheFocusRingStandsAroundTheGridAfterTheKeyboardAlone)
{
    view->show();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    // Around a line 5 outside the grid, which begins at 50 from the top.
    const QPoint above(gridLeft + 126, 50 - 5);
    const auto ring = WindowPalette::of(Look::light).focusRing;
    view->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(isNearly(picture(*view).pixelColor(above), ring));
    view->clearFocus();
    view->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(view->showsFocusRing());
    EXPECT_TRUE(isNearly(picture(*view).pixelColor(above), ring));
    EXPECT_TRUE(isNearly(picture(*view).pixelColor(above - QPoint(0, 1)), ring));
    EXPECT_FALSE(isNearly(picture(*view).pixelColor(above - QPoint(0, 2)), ring));
    EXPECT_FALSE(isNearly(picture(*view).pixelColor(above + QPoint(0, 1)), ring));
    click({2, 2});
    EXPECT_FALSE(view->showsFocusRing());
    QTest::keyClick(view.get(), Qt::Key_Left);
    EXPECT_TRUE(view->showsFocusRing());
}

TEST_F(HeatmapViewTest, IsACardWithHairlinesBesideTheGrid)
{
    for (const auto look : allLooks) {
        view->setTheme(look == Look::dark, look == Look::sakura);
        const auto& colours = WindowPalette::of(look);
        const auto image = picture(*view);
        EXPECT_TRUE(isNearly(image.pixelColor(300, 0), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(0, 98), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(599, 98), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(300, 1), colours.card));
        for (const auto row : {1, 3, 5}) {
            const auto middle = 50 + 15 * row + 6;
            const auto isGuide = [&](int x) {
                return isNearly(image.pixelColor(x, middle), colours.border) ||
                       isNearly(image.pixelColor(x, middle - 1), colours.border);
            };
            for (const auto x : {50, 100, gridLeft - 11, gridLeft + 252 + 10, 500, 579})
                EXPECT_TRUE(isGuide(x)) << x << " of row " << row;
            for (const auto x : {gridLeft - 5, gridLeft + 252 + 5, 585})
                EXPECT_FALSE(isGuide(x)) << x << " of row " << row;
        }
    }
}

TEST_F(HeatmapViewTest, TheGuidesAreOneHighAndLeaveOtherRowsAlone)
{
    const auto image = picture(*view);
    const auto border = WindowPalette::of(Look::light).border;
    int lines = 0;
    for (int y = 50; y < 50 + 7 * 15; ++y)
        lines += isNearly(image.pixelColor(120, y), border) ? 1 : 0;
    EXPECT_EQ(lines, 3);
}

TEST_F(HeatmapViewTest, ANarrowOneHasNoGuides)
{
    view->resize(316, 196);
    const auto image = picture(*view);
    for (int y = 50; y < 50 + 7 * 15; ++y)
        EXPECT_TRUE(isNearly(image.pixelColor(310, y), WindowPalette::of(Look::light).card));
}

TEST_F(HeatmapViewTest, TheLegendShowsTheLevelsAndEndsAtThePadding)
{
    const QFontMetricsF metrics(scaledFont(9, QFont::Normal, 0, 1));
    const auto more = metrics.horizontalAdvance(QStringLiteral("More"));
    for (const auto look : allLooks) {
        view->setTheme(look == Look::dark, look == Look::sakura);
        const auto levels = ActivityPalette::of(look == Look::dark, look == Look::sakura).levels;
        const auto image = picture(*view);
        for (std::size_t level = 0; level < levels.size(); ++level) {
            const auto left = 600 - 20 - more - 68 + 13.0 * static_cast<double>(level);
            // The swatches stand on the line of the legend, 8 from the bottom, 10 high.
            EXPECT_TRUE(isNearly(image.pixelColor(static_cast<int>(std::lround(left)) + 5, 196 - 8 - 5), levels[level]))
                << level;
        }
    }
}

int inked(const QImage& image, const QRect& where, const QColor& ink)
{
    int count = 0;
    for (int y = where.top(); y <= where.bottom(); ++y)
        for (int x = where.left(); x <= where.right(); ++x)
            count += isNearly(image.pixelColor(x, y), ink, 24) ? 1 : 0;
    return count;
}

TEST_F(HeatmapViewTest, EveryWordIsQuietAndAtItsPlace)
{
    for (const auto look : allLooks) {
        view->setTheme(look == Look::dark, look == Look::sakura);
        const auto image = picture(*view);
        const auto ink = WindowPalette::of(look).quietText;
        // Lower left corners at 22, 21, 42 from the top and at the legend's line.
        EXPECT_GT(inked(image, {20, 8, 60, 14}, ink), 20) << "ACTIVITY";
        EXPECT_GT(inked(image, {480, 8, 100, 13}, ink), 20) << "the range";
        EXPECT_GT(inked(image, {gridLeft, 30, 25, 12}, ink), 5) << "the first month";
        for (const auto row : {1, 3, 5})
            EXPECT_GT(inked(image, {20, 50 + 15 * row, 24, 12}, ink), 5) << "the weekday of row " << row;
        for (const auto row : {0, 2, 4, 6})
            EXPECT_EQ(inked(image, {20, 50 + 15 * row + 3, 24, 8}, ink), 0) << "no weekday on row " << row;
        EXPECT_GT(inked(image, {553, 176, 30, 14}, ink), 5) << "More";
        EXPECT_EQ(inked(image, {581, 8, 18, 180}, ink), 0) << "the padding on the right";
    }
}

TEST_F(HeatmapViewTest, KeepsItsSizesWhateverTheText)
{
    const auto before = picture(*view);
    const LargerText larger(1.5);
    EXPECT_EQ(picture(*view), before);
}

// At the scale that the process was given. Every pixel on a cell's middle line is all cell or all card.
TEST_F(HeatmapViewTest, TheCellsAreCrispOnEveryScreen)
{
    const auto ratio = view->devicePixelRatioF();
    ASSERT_EQ(ratio, qEnvironmentVariableIsSet(scaleVariable) ? qEnvironmentVariable(scaleVariable).toDouble() : 1);
    log(10, "2026-10-20T08:00:00Z");
    view->setSelectedDate(at("2025-01-01T00:00:00Z"));
    const auto isWhole = [&](const QColor& colour) {
        return isNearly(colour, ActivityPalette::of(false, false).levels[4]) ||
               isNearly(colour, WindowPalette::of(Look::light).card);
    };
    for (const auto width : {600, 601, 603}) {
        view->resize(width, 196);
        const auto rect = view->cellOnScreen(cell("2026-10-20"));
        const auto image = picture(*view);
        const auto middle = (rect.center() * ratio).toPoint();
        int across = 0;
        int down = 0;
        for (int away = static_cast<int>(-8 * ratio); away <= 8 * ratio; ++away) {
            const auto beside = image.pixelColor(middle.x() + away, middle.y());
            const auto above = image.pixelColor(middle.x(), middle.y() + away);
            EXPECT_TRUE(isWhole(beside)) << away << " beside, width " << width << ", " << beside.name().toStdString();
            EXPECT_TRUE(isWhole(above)) << away << " below, width " << width << ", " << above.name().toStdString();
            across += isNearly(beside, ActivityPalette::of(false, false).levels[4]) ? 1 : 0;
            down += isNearly(above, ActivityPalette::of(false, false).levels[4]) ? 1 : 0;
        }
        EXPECT_EQ(across, std::lround(12 * ratio));
        EXPECT_EQ(down, std::lround(12 * ratio));
    }
}

TEST_F(HeatmapViewTest, TheRingStandsAroundItsCellCrispAndEven)
{
    const auto ratio = view->devicePixelRatioF();
    log(10, "2026-10-20T08:00:00Z");
    view->setSelectedDate(at("2026-10-20T08:00:00Z"));
    for (const auto width : {600, 601, 603}) {
        view->resize(width, 196);
        const auto rect = view->cellOnScreen(cell("2026-10-20"));
        const auto image = picture(*view);
        const auto y = static_cast<int>(rect.center().y() * ratio);
        // The cell's edges as they are painted, and the pixels of gap and ring beyond them.
        const auto level = ActivityPalette::of(false, false).levels[4];
        auto left = static_cast<int>(rect.center().x() * ratio);
        auto right = left;
        while (isNearly(image.pixelColor(left - 1, y), level))
            --left;
        while (isNearly(image.pixelColor(right + 1, y), level))
            ++right;
        for (int away = 1; away <= 2.25 * ratio; ++away)
            EXPECT_TRUE(isNearly(image.pixelColor(left - away, y), image.pixelColor(right + away, y), 8))
                << away << " away, width " << width << ": " << image.pixelColor(left - away, y).name().toStdString()
                << " and " << image.pixelColor(right + away, y).name().toStdString();
    }
}

TEST_F(HeatmapViewTest, TheDaysAreCountedAnewAfterMidnight)
{
    cell("2026-10-28");
    time.setWallClock(at("2026-10-29T00:00:10Z"));
    picture(*view);
    EXPECT_EQ(view->cellRects().back().day.dateKey, "2026-10-29");
    time.setWallClock(at("2026-11-01T00:00:10Z")); // a Sunday: a new column
    picture(*view);
    EXPECT_EQ(view->cellRects().front().day.dateKey, "2026-07-12");
    EXPECT_EQ(view->cellRects().back().day.dateKey, "2026-11-01");
}

TEST_F(HeatmapViewTest, AtNightADayOfItsZoneIsToday)
{
    const LocalCalendar auckland("Pacific/Auckland", "en_US");
    HeatmapView there(time, auckland, nullptr);
    there.resize(size);
    picture(there);
    EXPECT_EQ(there.cellRects().back().day.dateKey, "2026-10-29");
}

} // namespace

} // namespace orrinvale
