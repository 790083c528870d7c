// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DayDetail.h"

#include "base/Timestamp.h"
#include "orrinvale/HourBars.h"
#include "text/LocalCalendar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orrinvale
{

namespace
{

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

Instant at(const char* timestamp)
{
    return timestampFromText(timestamp).value();
}

struct DayDetailTest : testing::Test {
    DayDetail detailOf(const std::optional<DayUsageRecord>& record, const char* date = "2026-10-05T00:00:00Z") const
    {
        return dayDetail(at(date), record, now, calendar);
    }
    static DayUsageRecord record()
    {
        DayUsageRecord day;
        day.hourlySeconds[9] = 3600;
        day.hourlySeconds[14] = 5400;
        return day;
    }

    const LocalCalendar calendar{"UTC", "de_DE"};
    const Instant now = at("2026-10-28T15:00:00Z");
};

TEST_F(DayDetailTest, TodayIsCalledTodayFromMidnightToMidnight)
{
    EXPECT_EQ(detailOf({}, "2026-10-28T00:00:00Z").heading, "TODAY");
    EXPECT_EQ(detailOf({}, "2026-10-28T23:59:59Z").heading, "TODAY");
    EXPECT_TRUE(detailOf({}, "2026-10-28T23:59:59Z").isToday);
    EXPECT_EQ(detailOf({}, "2026-10-27T23:59:59Z").heading, "Dienstag, Okt. 27");
    EXPECT_FALSE(detailOf({}, "2026-10-29T00:00:00Z").isToday);
}

TEST_F(DayDetailTest, OtherDaysReadAsTheLocaleWritesThem)
{
    const auto heading = [&](const char* locale) {
        return dayDetail(at("2026-10-05T00:00:00Z"), {}, now, LocalCalendar("UTC", locale)).heading;
    };
    EXPECT_EQ(heading("en_US"), "Monday, Oct 5");
    EXPECT_EQ(heading("de_DE"), "Montag, Okt. 5");
    EXPECT_EQ(heading("ja_JP"), "月曜日, 10月 5");
    EXPECT_EQ(heading("ar_EG"), "الاثنين, أكتوبر ٥");
}

TEST_F(DayDetailTest, WithoutARecordTheDayIsEmpty)
{
    const auto detail = detailOf({});
    EXPECT_TRUE(detail.isEmpty);
    EXPECT_EQ(detail.total, formatDuration(0));
    EXPECT_EQ(detail.buckets.size(), 24U);
    EXPECT_THAT(detail.buckets, Each(0.0));
    EXPECT_THAT(detail.apps, IsEmpty());
    EXPECT_STREQ(noActivityText, "No activity tracked yet");
}

TEST_F(DayDetailTest, TheTotalIsTheSumOfTheHours)
{
    const auto detail = detailOf(record());
    EXPECT_EQ(detail.total, "2h 30m");
    EXPECT_FALSE(detail.isEmpty);
    EXPECT_EQ(detail.buckets[9], 3600);
    EXPECT_EQ(detail.buckets[14], 5400);
    EXPECT_EQ(detail.buckets[0], 0);
}

TEST_F(DayDetailTest, TheSixAppsWithMostTimeAreListed)
{
    auto day = record();
    for (int i = 1; i <= 7; ++i) {
        const auto key = "app" + std::to_string(i);
        day.appSeconds[key] = 600 * i;
        day.appNames[key] = "App " + std::to_string(i);
    }
    day.appNames.erase("app6");
    EXPECT_THAT(detailOf(day).apps, ElementsAre(DayDetail::AppRow{"App 7", "1h 10m"}, DayDetail::AppRow{"app6", "1h"},
                                                DayDetail::AppRow{"App 5", "50m"}, DayDetail::AppRow{"App 4", "40m"},
                                                DayDetail::AppRow{"App 3", "30m"}, DayDetail::AppRow{"App 2", "20m"}));
}

TEST_F(DayDetailTest, TheChartTellsItsTotalAndBusiestHour)
{
    EXPECT_EQ(hourChartText(detailOf(record()), calendar), "2h 30m, most at 14:00");
    EXPECT_EQ(hourChartText(detailOf({}), calendar), "No activity tracked yet");
}

TEST(HourBars, EmptyHoursShowStubs)
{
    const HourBars chart(std::vector<double>(24, 0.0), 560, 99);
    ASSERT_EQ(chart.bars.size(), 24U);
    const auto width = (560 - 6 * 23) / 24.0;
    for (std::size_t i = 0; i < 24; ++i)
        EXPECT_EQ(chart.bars[i], (Rect{static_cast<double>(i) * (width + 6), 0, width, 4}));
}

TEST(HourBars, TheBusiestHourFillsTheHeight)
{
    std::vector<double> buckets(24, 0.0);
    buckets[3] = 3600;
    buckets[4] = 900;
    buckets[5] = 36;
    const HourBars chart(buckets, 560, 100);
    EXPECT_EQ(chart.bars[3].height, 100);
    EXPECT_EQ(chart.bars[4].height, 25);
    EXPECT_EQ(chart.bars[5].height, 4);
}

TEST(HourBars, UpToASecondTheScaleIsOneSecond)
{
    const auto height = [](double seconds) { return HourBars({seconds, 0}, 100, 100).bars[0].height; };
    EXPECT_EQ(height(0.5), 50);
    EXPECT_EQ(height(1), 100);
    EXPECT_EQ(height(2), 100);
}

TEST(HourBars, TheRadiusFollowsTheWidthAndNeverExceedsHalfTheHeight)
{
    const HourBars chart({100, 0}, 46, 100); // bars 20 wide
    EXPECT_EQ(chart.cornerRadius(chart.bars[0]), 8);
    EXPECT_EQ(chart.cornerRadius(chart.bars[1]), 2);
}

TEST(HourBars, NothingBreaksWithoutRoomOrHours)
{
    EXPECT_THAT(HourBars({}, 100, 100).bars, IsEmpty());
    for (const auto& bar : HourBars(std::vector<double>(24, 1.0), 50, 0).bars)
        EXPECT_EQ(bar.width, 0);
    EXPECT_EQ(HourBars({-5, 10}, 46, 100).bars[0].height, 4);
}

} // namespace

} // namespace orrinvale
