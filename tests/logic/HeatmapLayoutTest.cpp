// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HeatmapLayout.h"

#include "base/Timestamp.h"
#include "text/LocalCalendar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

using namespace std::chrono;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Category = PersistedStateCategory;

constexpr double cardWidth = 600, cardHeight = 196; // in a window of 640

Instant at(const char* timestamp)
{
    return timestampFromText(timestamp).value();
}

std::string keyOf(sys_days day)
{
    const year_month_day date(day);
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()));
}

std::vector<ActivityEntry> entries(int count, const char* timestamp, Category category = Category::awake)
{
    std::vector<ActivityEntry> all;
    for (int i = 0; i < count; ++i)
        all.push_back({UUID::random(), at(timestamp) + seconds(i), "m", category});
    return all;
}

const HeatmapLabel* labelOf(const HeatmapLayout& layout, std::string_view text)
{
    for (const auto& label : layout.labels) {
        if (label.text == text)
            return &label;
    }
    return nullptr;
}

struct Region {
    const char* locale;
    unsigned firstWeekday; // 0 Sunday
    std::array<const char*, 6> augustToJanuary;
};
const Region regions[] = {
    {"en_US", 0, {"Aug", "Sep", "Oct", "Nov", "Dec", "Jan"}},
    {"de_DE", 1, {"Aug.", "Sept.", "Okt.", "Nov.", "Dez.", "Jan."}},
    {"ar_EG", 6, {"أغسطس", "سبتمبر", "أكتوبر", "نوفمبر", "ديسمبر", "يناير"}},
    {"ja_JP", 0, {"8月", "9月", "10月", "11月", "12月", "1月"}},
};

// The Sunday within the week of `day`, counted without a calendar library.
sys_days sundayWithin(sys_days day, unsigned firstWeekday)
{
    const auto intoWeek = (weekday(day).c_encoding() + 7 - firstWeekday) % 7;
    return day - days(intoWeek) + days((7 - firstWeekday) % 7);
}

struct AroundTheYearsTurn : testing::TestWithParam<std::tuple<Region, int>> {
    const Region& region = std::get<0>(GetParam());
    const sys_days today = sys_days(2026y / December / 26) + days(std::get<1>(GetParam()));
    const sys_days start = sundayWithin(today, region.firstWeekday) - days(16 * 7);
    const LocalCalendar calendar{"UTC", region.locale};
    const HeatmapGrid grid = heatmapGrid({}, today + 15h, calendar);
};

TEST_P(AroundTheYearsTurn, EveryDayFromTheStartUntilTodayIsDrawnInItsColumnAndRow)
{
    ASSERT_EQ(static_cast<std::int64_t>(grid.days.size()), (today - start).count() + 1);
    for (std::size_t i = 0; i < grid.days.size(); ++i) {
        const auto& day = grid.days[i];
        const auto date = start + days(i);
        EXPECT_EQ(day.dateKey, keyOf(date));
        EXPECT_EQ(day.date, Instant(date));
        EXPECT_EQ(day.column, static_cast<int>(i / 7));
        const auto dayOfColumn = i % 7 + 1;
        EXPECT_EQ(day.row, dayOfColumn == 7 ? 0 : static_cast<int>(dayOfColumn));
        EXPECT_EQ(weekday(date) == Sunday, day.row == 1);
    }
}

TEST_P(AroundTheYearsTurn, TheRectanglesFollowColumnAndRow)
{
    const HeatmapLayout layout(grid, cardWidth, cardHeight);
    ASSERT_EQ(layout.cells.size(), grid.days.size());
    for (const auto& cell : layout.cells) {
        EXPECT_EQ(cell.rect, (Rect{44 + 142 + 15.0 * cell.day.column, 196 - (15.0 * cell.day.row + 50) - 12, 12, 12}));
        EXPECT_EQ(layout.cellAt({cell.rect.x + 6, cell.rect.y + 6}), &cell);
        EXPECT_EQ(layout.selectionRing(cell.day.dateKey), (Rect{cell.rect.x - 1.5, cell.rect.y - 1.5, 15, 15}));
    }
}

TEST_P(AroundTheYearsTurn, AColumnThatBeginsAnotherMonthIsLabelledEvenWhenEmpty)
{
    std::vector<HeatmapMonth> expected;
    std::optional<month> previous;
    for (int column = 0; column < 17; ++column) {
        const year_month_day date(start + days(7 * column));
        const auto name = (static_cast<unsigned>(date.month()) + 12 - 8) % 12;
        ASSERT_LT(name, region.augustToJanuary.size());
        if (date.month() != previous)
            expected.push_back({column, region.augustToJanuary[name]});
        previous = date.month();
    }
    EXPECT_EQ(grid.months, expected);
    const HeatmapLayout layout(grid, cardWidth, cardHeight);
    for (const auto& label : expected) {
        ASSERT_TRUE(labelOf(layout, label.name));
        EXPECT_EQ(*labelOf(layout, label.name),
                  (HeatmapLabel{label.name, {44 + 142 + 15.0 * label.column, 154}, 10, TextWeight::medium}));
    }
}

TEST_P(AroundTheYearsTurn, TheTooltipsOfAnEmptyLogSayNoActivity)
{
    for (const auto& day : grid.days) {
        EXPECT_EQ(heatmapTooltip(day, calendar), calendar.text(day.date, "MMM d, yyyy") + " — No activity");
        EXPECT_EQ(day.level(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(EveryWeekday, AroundTheYearsTurn,
                         testing::Combine(testing::ValuesIn(regions), testing::Range(0, 16)), [](const auto& each) {
                             return fmt::format("{}_{}", std::get<0>(each.param).locale, std::get<1>(each.param));
                         });

struct HeatmapTest : testing::Test {
    const LocalCalendar calendar{"UTC", "en_US"};
    const Instant now = at("2026-10-28T15:00:00Z"); // a Wednesday
    HeatmapGrid gridOf(const std::vector<ActivityEntry>& log) const { return heatmapGrid(log, now, calendar); }
};

TEST_F(HeatmapTest, LevelsFollowTheCountOfAwakeEntries)
{
    struct Row {
        int count;
        int level;
        const char* tooltip;
    };
    const Row rows[] = {
        {0, 0, "Oct 5, 2026 — No activity"},        {1, 1, "Oct 5, 2026 — 1 active period"},
        {2, 1, "Oct 5, 2026 — 2 active periods"},   {3, 2, "Oct 5, 2026 — 3 active periods"},
        {5, 2, "Oct 5, 2026 — 5 active periods"},   {6, 3, "Oct 5, 2026 — 6 active periods"},
        {9, 3, "Oct 5, 2026 — 9 active periods"},   {10, 4, "Oct 5, 2026 — 10 active periods"},
        {99, 4, "Oct 5, 2026 — 99 active periods"},
    };
    for (const auto& row : rows) {
        const auto grid = gridOf(entries(row.count, "2026-10-05T12:00:00Z"));
        const auto* day = grid.dayOf("2026-10-05");
        ASSERT_TRUE(day);
        EXPECT_EQ(day->count, row.count);
        EXPECT_EQ(day->level(), row.level) << row.count;
        EXPECT_EQ(heatmapTooltip(*day, calendar), row.tooltip);
        EXPECT_EQ(grid.dayOf("2026-10-06")->count, 0);
    }
}

TEST_F(HeatmapTest, OnlyAwakeEntriesAreCounted)
{
    auto log = entries(4, "2026-10-05T12:00:00Z", Category::cooldown);
    for (const auto& entry : entries(3, "2026-10-05T13:00:00Z", Category::idle))
        log.push_back(entry);
    log.push_back(entries(1, "2026-10-05T14:00:00Z").front());
    EXPECT_EQ(gridOf(log).dayOf("2026-10-05")->count, 1);
}

TEST_F(HeatmapTest, EntriesCountOnTheirLocalDay)
{
    const LocalCalendar tokyo("Asia/Tokyo", "ja_JP");
    const auto grid = heatmapGrid(entries(1, "2026-10-05T15:00:00Z"), now, tokyo);
    EXPECT_EQ(grid.dayOf("2026-10-06")->count, 1);
    EXPECT_EQ(grid.dayOf("2026-10-05")->count, 0);
}

TEST_F(HeatmapTest, TooltipsReadAsTheLocaleWritesDates)
{
    const auto tooltip = [&](const char* locale) {
        const LocalCalendar local("UTC", locale);
        return heatmapTooltip(*heatmapGrid(entries(3, "2026-10-05T12:00:00Z"), now, local).dayOf("2026-10-05"), local);
    };
    EXPECT_EQ(tooltip("de_DE"), "Okt. 5, 2026 — 3 active periods");
    EXPECT_EQ(tooltip("ja_JP"), "10月 5, 2026 — 3 active periods");
    EXPECT_EQ(tooltip("ar_EG"), "أكتوبر ٥, ٢٠٢٦ — 3 active periods");
}

TEST_F(HeatmapTest, TheHeaderNamesTheSpan)
{
    const HeatmapLayout layout(gridOf({}), cardWidth, cardHeight);
    EXPECT_EQ(layout.labels[0], (HeatmapLabel{"ACTIVITY", {20, 174}, 11, TextWeight::semibold}));
    EXPECT_EQ(layout.labels[1],
              (HeatmapLabel{"Jul 2026 – Oct 2026", {580, 175}, 10, TextWeight::regular, HeatmapLabel::Corner::right}));
}

TEST_F(HeatmapTest, TheRowsOneThreeAndFiveBearTheWeekdayWords)
{
    const HeatmapLayout layout(gridOf({}), cardWidth, cardHeight);
    EXPECT_EQ(*labelOf(layout, "Mon"), (HeatmapLabel{"Mon", {20, 120}, 9, TextWeight::regular}));
    EXPECT_EQ(*labelOf(layout, "Wed"), (HeatmapLabel{"Wed", {20, 90}, 9, TextWeight::regular}));
    EXPECT_EQ(*labelOf(layout, "Fri"), (HeatmapLabel{"Fri", {20, 60}, 9, TextWeight::regular}));
}

TEST_F(HeatmapTest, TheGridIsCentredWhenWideAndNeverLeavesTheWeekdayColumn)
{
    struct Row {
        double width;
        double left;
    };
    for (const auto& [width, left] : {Row{200, 44}, Row{316, 44}, Row{317, 44.5}, Row{480, 126}, Row{1600, 686}}) {
        const HeatmapLayout layout(gridOf({}), width, cardHeight);
        EXPECT_EQ(layout.cells.front().rect.x, left) << width;
        EXPECT_EQ(layout.cells.back().rect.x, left + 240) << width;
        EXPECT_EQ(labelOf(layout, "Jul")->corner.x, left) << width;
        EXPECT_EQ(layout.grid, (Rect{left, 44, 252, 102})) << width;
    }
}

TEST_F(HeatmapTest, GuidesTieTheWordsToTheGridWhereThereIsRoom)
{
    EXPECT_THAT(HeatmapLayout(gridOf({}), 316, cardHeight).guides, IsEmpty());
    EXPECT_THAT(HeatmapLayout(gridOf({}), cardWidth, cardHeight).guides,
                ElementsAre(Rect{50, 124.5, 126, 1}, Rect{448, 124.5, 132, 1}, Rect{50, 94.5, 126, 1},
                            Rect{448, 94.5, 132, 1}, Rect{50, 64.5, 126, 1}, Rect{448, 64.5, 132, 1}));
}

TEST_F(HeatmapTest, TheLegendEndsAtThePadding)
{
    const auto legend = heatmapLegend(600, 20, 24);
    EXPECT_EQ(legend.more, (HeatmapLabel{"More", {556, 8}, 9, TextWeight::regular}));
    EXPECT_EQ(legend.swatches[0], (Rect{488, 8, 10, 10}));
    EXPECT_EQ(legend.swatches[4], (Rect{540, 8, 10, 10}));
    EXPECT_EQ(legend.less, (HeatmapLabel{"Less", {462, 8}, 9, TextWeight::regular}));
}

TEST_F(HeatmapTest, DaysAfterTodayAreNotThere)
{
    const auto grid = gridOf(entries(1, "2026-10-29T12:00:00Z"));
    EXPECT_EQ(grid.days.back().dateKey, "2026-10-28");
    EXPECT_FALSE(grid.dayOf("2026-10-29"));
    const HeatmapLayout layout(grid, cardWidth, cardHeight);
    const auto today = layout.cells.back().rect;
    EXPECT_FALSE(layout.cellAt({today.x + 6, today.y - 15 + 6}));
    EXPECT_FALSE(layout.selectionRing("2026-10-29"));
}

TEST_F(HeatmapTest, AClickBetweenCellsMeetsNothing)
{
    const HeatmapLayout layout(gridOf({}), cardWidth, cardHeight);
    const auto cell = layout.cells.front().rect;
    EXPECT_EQ(layout.cellAt({cell.x, cell.y}), &layout.cells.front());
    EXPECT_EQ(layout.cellAt({cell.x + 11.9, cell.y + 11.9}), &layout.cells.front());
    EXPECT_FALSE(layout.cellAt({cell.x + 12, cell.y + 6}));
    EXPECT_FALSE(layout.cellAt({cell.x + 13.5, cell.y + 6}));
    EXPECT_FALSE(layout.cellAt({cell.x + 6, cell.y + 13}));
    EXPECT_FALSE(layout.cellAt({cell.x - 0.1, cell.y + 6}));
    EXPECT_FALSE(layout.cellAt({0, 0}));
}

TEST_F(HeatmapTest, TheTurnedRectangleStandsAtTheSamePlaceFromTheTop)
{
    const HeatmapLayout layout(gridOf({}), cardWidth, cardHeight);
    EXPECT_EQ(layout.cells.front().day.row, 1);
    EXPECT_EQ(layout.cells.front().rect.flipped(cardHeight), (Rect{186, 65, 12, 12}));
}

TEST_F(HeatmapTest, ArrowsGoAlongTheDrawnGrid)
{
    struct Row {
        const char* from;
        HeatmapMove move;
        const char* to;
    };
    using enum HeatmapMove;
    const Row rows[] = {
        {"2026-10-28", left, "2026-10-21"},  {"2026-10-21", right, "2026-10-28"}, // Wednesdays, row 4
        {"2026-10-22", right, "2026-10-22"},                                      // the next Thursday is not drawn
        {"2026-10-28", right, "2026-10-28"}, {"2026-10-28", down, "2026-10-28"},  {"2026-10-28", up, "2026-10-27"},
        {"2026-10-20", down, "2026-10-21"},  {"2026-10-25", up, "2026-10-25"}, // the Saturday above it is not drawn yet
        {"2026-10-18", up, "2026-10-24"},    {"2026-10-24", up, "2026-10-24"},    {"2026-10-24", down, "2026-10-18"},
        {"2026-10-23", down, "2026-10-23"},  {"2026-07-05", left, "2026-07-05"},  {"2026-10-01", home, "2026-07-05"},
        {"2026-10-01", end, "2026-10-28"},   {"2020-01-01", left, "2026-10-28"},  {"2020-01-01", home, "2026-07-05"},
        {"2026-10-29", up, "2026-10-28"},
    };
    const auto grid = gridOf({});
    for (const auto& row : rows) {
        const auto* day = heatmapMove(grid, row.from, row.move);
        ASSERT_TRUE(day);
        EXPECT_EQ(day->dateKey, row.to) << row.from;
    }
    EXPECT_FALSE(heatmapMove({}, "2026-10-28", left));
}

TEST(Heatmap, EveryDayIsDrawnOnceAcrossSummerTime)
{
    for (const auto* zone : {"Europe/Berlin", "America/Santiago", "Asia/Beirut", "Africa/Cairo"}) {
        const LocalCalendar calendar(zone, "de_DE");
        for (const auto* now : {"2026-05-03T12:00:00Z", "2026-11-01T12:00:00Z"}) { // Sundays
            const auto grid = heatmapGrid({}, at(now), calendar);
            ASSERT_EQ(grid.days.size(), 113U) << zone;
            for (std::size_t i = 1; i < grid.days.size(); ++i)
                EXPECT_EQ(calendar.wholeDays(grid.days[i - 1].date - 3h, grid.days[i].date), 1) << zone << i;
        }
    }
}

TEST(Heatmap, TodayIsDrawnThoughSummerTimeSkippedMidnight)
{
    // In Santiago the clock goes from 24:00 to 01:00 on Sunday, 6 September 2026.
    const LocalCalendar calendar("America/Santiago", "en_US");
    const auto grid = heatmapGrid({}, at("2026-09-07T03:30:00Z"), calendar); // Monday 00:30
    EXPECT_EQ(grid.days.back().dateKey, "2026-09-07");
}

TEST(Heatmap, ALogOfAYearIsCountedQuickly)
{
    const LocalCalendar calendar("UTC", "en_US");
    const auto log = entries(5000, "2026-10-05T12:00:00Z");
    const auto begin = steady_clock::now();
    heatmapGrid(log, at("2026-10-28T15:00:00Z"), calendar);
    EXPECT_LT(steady_clock::now() - begin, 100ms); // a bound for a noisy machine
}

} // namespace

} // namespace orrinvale
