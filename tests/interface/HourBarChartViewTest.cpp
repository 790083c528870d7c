// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HourBarChartView.h"

#include "orrinvale/DayDetail.h"
#include "tests/interface/WindowFixture.h"

#include <QAccessible>

namespace orrinvale
{

namespace
{

constexpr auto barWidth = 10; // (378 - 23 x 6) / 24
constexpr auto step = 16;
constexpr QSize size(24 * barWidth + 23 * 6, 100);

struct HourBarChartViewTest : InterfaceFixture {
    HourBarChartViewTest() { chart.resize(size); }
    void show(const std::vector<std::pair<int, double>>& hours)
    {
        DayUsageRecord record;
        for (const auto& [hour, seconds] : hours)
            record.hourlySeconds[static_cast<std::size_t>(hour)] = seconds;
        chart.show(dayDetail(time.now(), record, time.now(), english));
    }
    // From the bottom, in the middle of the hour's column.
    int heightOf(int hour)
    {
        QImage image(chart.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        chart.render(&image, {}, {}, {});
        int high = 0;
        for (int y = 0; y < image.height(); ++y)
            high += image.pixelColor(hour * step + barWidth / 2, y).alpha() > 127;
        return high;
    }
    QColor middleOfBar(int hour)
    {
        QImage image(chart.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        chart.render(&image, {}, {}, {});
        return image.pixelColor(hour * step + barWidth / 2, image.height() - 2);
    }

    LocalCalendar english{"UTC", "en_US"};
    HourBarChartView chart{english, nullptr};
};

TEST_F(HourBarChartViewTest, BeginsWithTwentyFourEmptyHours)
{
    EXPECT_EQ(chart.buckets(), std::vector<double>(24));
    for (int hour = 0; hour < 24; ++hour)
        EXPECT_EQ(heightOf(hour), 4) << hour;
}

TEST_F(HourBarChartViewTest, TheBusiestHourFillsTheHeightAndTheOthersTheirShare)
{
    show({{9, 3600}, {14, 900}, {23, 1}});
    EXPECT_EQ(heightOf(9), 100);
    EXPECT_EQ(heightOf(14), 25);
    EXPECT_EQ(heightOf(23), 4);
    EXPECT_EQ(heightOf(0), 4);
}

TEST_F(HourBarChartViewTest, HalfASecondStaysLow)
{
    show({{5, 0.5}});
    EXPECT_EQ(heightOf(5), 50);
}

TEST_F(HourBarChartViewTest, TheBarsStandSixApart)
{
    show({{0, 3600}, {1, 3600}, {23, 3600}});
    QImage image(chart.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    chart.render(&image, {}, {}, {});
    for (const auto x : {0, 9, 16, 25, 368, 377})
        EXPECT_EQ(image.pixelColor(x, 50).alpha(), 255) << x;
    for (const auto x : {10, 15, 26, 367})
        EXPECT_EQ(image.pixelColor(x, 50).alpha(), 0) << x;
}

TEST_F(HourBarChartViewTest, TheCornersAreRound)
{
    show({{0, 3600}});
    QImage image(chart.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    chart.render(&image, {}, {}, {});
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0); // a radius of 4
    EXPECT_EQ(image.pixelColor(0, 99).alpha(), 0);
    EXPECT_EQ(image.pixelColor(5, 0).alpha(), 255);
}

// At the scale that the process was given. Every pixel half way up is all bar or all ground.
TEST_F(HourBarChartViewTest, TheBarsAreCrispOnEveryScreen)
{
    chart.resize(560, 99); // bars of 17.58
    show({{0, 3600}, {1, 1800}, {5, 2000}, {23, 3600}});
    const auto image = picture(chart);
    const auto isWhole = [&](const QColor& colour) {
        return isNearly(colour, chart.barColour()) || isNearly(colour, chart.palette().color(QPalette::Window));
    };
    int changes = 0;
    for (int x = 0; x < image.width(); ++x) {
        const auto colour = image.pixelColor(x, image.height() * 3 / 4);
        EXPECT_TRUE(isWhole(colour)) << x << " is " << colour.name().toStdString();
        changes += x > 0 && colour != image.pixelColor(x - 1, image.height() * 3 / 4) ? 1 : 0;
    }
    EXPECT_EQ(changes, 6); // the first and the last bar touch the edges
    const auto middleOfSecond = static_cast<int>(32.4 * chart.devicePixelRatioF());
    for (int y = 0; y < image.height(); ++y)
        EXPECT_TRUE(isWhole(image.pixelColor(middleOfSecond, y))) << y;
}

TEST_F(HourBarChartViewTest, TheColourFollowsSakuraAlone)
{
    show({{3, 60}});
    const auto green = tableColour(0.63, 0.75, 0.58);
    const auto pink = tableColour(0.87, 0.47, 0.60);
    for (const auto isDark : {false, true}) {
        chart.setTheme(isDark, false);
        EXPECT_EQ(bytes(chart.barColour()), green);
        EXPECT_TRUE(isNearly(middleOfBar(3), green));
        chart.setTheme(isDark, true);
        EXPECT_EQ(bytes(chart.barColour()), pink);
        EXPECT_TRUE(isNearly(middleOfBar(3), pink));
    }
}

TEST_F(HourBarChartViewTest, HoveringIsSilent)
{
    show({{14, 2700}});
    EXPECT_EQ(toolTipAt(chart, {14 * step + 5, 99}), QString());
    EXPECT_EQ(toolTipAt(chart, {0, 99}), QString());
    EXPECT_FALSE(chart.hasMouseTracking());
}

TEST_F(HourBarChartViewTest, IsAChartToAssistiveTechnology)
{
    show({{14, 2700}});
    auto* accessible = QAccessible::queryAccessibleInterface(&chart);
    EXPECT_EQ(accessible->role(), QAccessible::Chart);
    EXPECT_EQ(accessible->text(QAccessible::Name), chart.accessibleName());
}

TEST_F(HourBarChartViewTest, SaysItsTotalAndBusiestHour)
{
    EXPECT_EQ(chart.accessibleName(), QString());
    show({});
    EXPECT_EQ(chart.accessibleName(), QStringLiteral("No activity tracked yet"));
    show({{14, 2700}, {9, 60}});
    EXPECT_EQ(withPlainSpaces(chart.accessibleName()), QStringLiteral("46m, most at 2:00 PM"));
}

} // namespace

} // namespace orrinvale
