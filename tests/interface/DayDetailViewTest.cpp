// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DayDetailView.h"

#include "base/Timestamp.h"
#include "orrinvale/ActivityPalette.h"
#include "orrinvale/HourBarChartView.h"
#include "tests/interface/WindowFixture.h"

#include <QFontMetricsF>

namespace orrinvale
{

namespace
{

constexpr QSize size(600, 334); // in a window of 640 x 660

struct DayDetailViewTest : InterfaceFixture {
    DayDetailViewTest()
    {
        time.setWallClock(today);
        view = std::make_unique<DayDetailView>(time, english, nullptr);
        view->resize(size);
        view->show();
    }
    // Hours with their seconds, and apps with theirs.
    void show(const std::vector<std::pair<int, double>>& hours, const std::vector<std::pair<std::string, double>>& apps,
              Look look = Look::light)
    {
        DayUsageRecord record;
        for (const auto& [hour, seconds] : hours)
            record.hourlySeconds[static_cast<std::size_t>(hour)] = seconds;
        for (const auto& [name, seconds] : apps) {
            record.appSeconds["key of " + name] = seconds;
            record.appNames["key of " + name] = name;
        }
        view->update(date, record, look == Look::dark, look == Look::sakura);
    }
    QRect placeOf(const QWidget& child) const { return {child.mapTo(view.get(), QPoint(0, 0)), child.size()}; }
    QStringList rows() const
    {
        QStringList texts;
        for (const auto& row : view->appRows())
            texts << row.name->text() + QStringLiteral(": ") + row.time->text();
        return texts;
    }
    bool showsEmptyText() const { return view->emptyLabel().isVisibleTo(view.get()); }

    const Instant today = timestampFromText("2026-10-28T15:00:00Z").value();
    Instant date = today;
    LocalCalendar english{"UTC", "en_US"};
    std::unique_ptr<DayDetailView> view;
};

TEST_F(DayDetailViewTest, ADayWithoutARecordIsEmpty)
{
    view->update(today, std::nullopt, false, false);
    EXPECT_EQ(view->dateLabel().text(), QStringLiteral("TODAY"));
    EXPECT_EQ(view->totalLabel().text(), QStringLiteral("< 1m"));
    EXPECT_EQ(view->emptyLabel().text(), QStringLiteral("No activity tracked yet"));
    EXPECT_TRUE(showsEmptyText());
    EXPECT_EQ(view->barChart().buckets(), std::vector<double>(24));
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(DayDetailViewTest, BeginsLikeThat)
{
    EXPECT_EQ(view->dateLabel().text(), QStringLiteral("TODAY"));
    EXPECT_TRUE(showsEmptyText());
}

TEST_F(DayDetailViewTest, AnotherDayBearsItsDate)
{
    date = timestampFromText("2026-10-27T23:59:59Z").value();
    show({{1, 60}}, {});
    EXPECT_EQ(view->dateLabel().text(), QStringLiteral("Tuesday, Oct 27"));
}

TEST_F(DayDetailViewTest, ShowsTotalHoursAndTheSixBusiestApps)
{
    show({{9, 3600}, {14, 2700}},
         {{"One", 60}, {"Two", 120}, {"Three", 180}, {"Four", 240}, {"Five", 300}, {"Six", 7500}, {"Seven", 30}});
    EXPECT_EQ(view->totalLabel().text(), QStringLiteral("1h 45m"));
    EXPECT_EQ(view->barChart().buckets()[9], 3600);
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("Six: 2h 5m"), QStringLiteral("Five: 5m"), QStringLiteral("Four: 4m"),
                                   QStringLiteral("Three: 3m"), QStringLiteral("Two: 2m"), QStringLiteral("One: 1m")}));
    EXPECT_FALSE(showsEmptyText());
}

TEST_F(DayDetailViewTest, ShowsControlCharactersOfNamesAsSigns)
{
    show({{9, 60}}, {{"O\nne", 60}});
    EXPECT_EQ(rows(), QStringList{QStringLiteral("O␊ne: 1m")});
}

TEST_F(DayDetailViewTest, RowsGoWithTheirApps)
{
    show({{9, 60}}, {{"One", 60}, {"Two", 120}, {"Three", 180}});
    show({{9, 60}}, {{"Two", 180}});
    EXPECT_EQ(rows(), QStringList{QStringLiteral("Two: 3m")});
    settle();
    EXPECT_EQ(rows(), QStringList{QStringLiteral("Two: 3m")});
    view->update(today, std::nullopt, false, false);
    EXPECT_EQ(rows(), QStringList());
    EXPECT_TRUE(showsEmptyText());
}

TEST_F(DayDetailViewTest, StandsAsItWasDrawn)
{
    show({{9, 3600}}, {{"One", 60}, {"Two", 120}});
    EXPECT_EQ(placeOf(view->totalLabel()).top(), 12);
    EXPECT_EQ(placeOf(view->totalLabel()).height(), 24);
    EXPECT_EQ(placeOf(view->totalLabel()).right() + 1, 580);
    EXPECT_EQ(placeOf(view->dateLabel()).left(), 20);
    EXPECT_EQ(placeOf(view->barChart()), QRect(20, 52, 560, 99));
    EXPECT_EQ(placeOf(*view->appRows()[0].name).topLeft(), QPoint(20, 176));
    EXPECT_EQ(placeOf(*view->appRows()[0].time).right() + 1, 580);
    EXPECT_EQ(placeOf(*view->appRows()[1].name).top(), 200);
    EXPECT_EQ(placeOf(*view->appRows()[1].name).height(), 24);
    EXPECT_TRUE(view->appRows()[0].time->alignment() & Qt::AlignRight);
}

TEST_F(DayDetailViewTest, HeadingAndTotalShareABaseline)
{
    const auto baseline = [this](const TextLabel& label) {
        const QFontMetricsF metrics(label.font());
        const auto place = placeOf(label);
        return place.top() + (place.height() - metrics.height()) / 2 + metrics.ascent();
    };
    EXPECT_NEAR(baseline(view->dateLabel()), baseline(view->totalLabel()), 0.51);
}

TEST_F(DayDetailViewTest, TheEmptyTextStandsInTheMiddleOfTheRows)
{
    const auto place = placeOf(view->emptyLabel());
    EXPECT_EQ(place, QRect(20, 176, 560, 6 * 24));
    EXPECT_EQ(view->emptyLabel().alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
}

TEST_F(DayDetailViewTest, TheChartDoesNotChangeWithTheDay)
{
    const auto empty = placeOf(view->barChart());
    show({{9, 3600}}, {{"One", 60}, {"Two", 120}});
    EXPECT_EQ(placeOf(view->barChart()), empty);
}

TEST_F(DayDetailViewTest, TheChartTakesTheRoomThatTheRowsLeave)
{
    view->resize(600, 400);
    EXPECT_EQ(view->barChart().height(), 165);
    view->resize(600, 700);
    EXPECT_EQ(view->barChart().height(), 240);
    view->resize(600, 154);
    EXPECT_EQ(view->barChart().height(), 48);
    view->resize(480, 334);
    EXPECT_EQ(placeOf(view->barChart()), QRect(20, 52, 440, 99));
}

TEST_F(DayDetailViewTest, TextsHaveTheirSizesWeightsAndColours)
{
    for (const auto look : allLooks) {
        const auto& window = WindowPalette::of(look);
        const auto activity = ActivityPalette::of(look == Look::dark, look == Look::sakura);
        date = today;
        show({{9, 3600}}, {{"One", 60}}, look);
        expectText(view->dateLabel(), {11, QFont::DemiBold, 0.55}, window.quietText);
        expectText(view->totalLabel(), {20, QFont::DemiBold, -0.2}, window.primaryText);
        expectText(*view->appRows()[0].name, {13, QFont::Normal}, activity.appName);
        expectText(*view->appRows()[0].time, {13, QFont::Normal}, activity.appTime);
        date = today - std::chrono::hours(48);
        show({}, {}, look);
        expectText(view->dateLabel(), {11, QFont::DemiBold}, window.quietText);
        expectText(view->totalLabel(), {20, QFont::DemiBold, -0.2}, window.quietText);
        expectText(view->emptyLabel(), {13, QFont::Normal}, window.quietText);
    }
}

TEST_F(DayDetailViewTest, AThemeRestylesWhatIsShown)
{
    show({{9, 3600}}, {{"One", 60}});
    view->setTheme(false, true);
    EXPECT_EQ(bytes(view->appRows()[0].name->colour()), tableColour(0.32, 0.18, 0.24));
    EXPECT_EQ(bytes(view->appRows()[0].time->colour()), tableColour(0.62, 0.44, 0.50));
    EXPECT_EQ(bytes(view->barChart().barColour()), tableColour(0.87, 0.47, 0.60));
    EXPECT_EQ(rows(), QStringList{QStringLiteral("One: 1m")});
}

TEST_F(DayDetailViewTest, IsACardWithALineUnderTheChart)
{
    for (const auto look : allLooks) {
        show({}, {}, look);
        const auto& colours = WindowPalette::of(look);
        const auto image = picture(*view);
        EXPECT_TRUE(isNearly(image.pixelColor(300, 0), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(599, 160), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(300, 2), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(300, 167), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(20, 167), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(579, 167), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(300, 166), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(300, 168), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(18, 167), colours.card));
        EXPECT_FALSE(isNearly(image.pixelColor(0, 0), colours.border)); // round
    }
}

TEST_F(DayDetailViewTest, NamesFromOutsideAreShownAsTheyAreAndCutAtTheirEnd)
{
    const std::string wordy = "<b>R&D</b> An application with a name that nobody expected to be this long, and yet "
                              "here it is, on a row that has no room for it";
    show({{9, 60}}, {{wordy, 7500}});
    const auto& row = view->appRows()[0];
    EXPECT_EQ(row.name->text(), QString::fromStdString(wordy));
    EXPECT_EQ(row.name->textFormat(), Qt::PlainText);
    EXPECT_EQ(row.name->toolTip(), plainToolTip(QString::fromStdString(wordy)));
    EXPECT_GE(row.time->width(), row.time->naturalWidth());
    EXPECT_GE(placeOf(*row.time).left() - placeOf(*row.name).right(), 16);
}

TEST_F(DayDetailViewTest, LargerTextIsWholeAndScrolls)
{
    const LargerText larger(1.5);
    show({{9, 3600}}, {{"One", 60}, {"Two", 120}, {"Three", 180}, {"Four", 240}, {"Five", 300}, {"Six", 7500}});
    view->resize(480, 154);
    EXPECT_EQ(view->appRows()[0].name->height(), 33);
    expectWhole(view->dateLabel(), 24);
    expectWhole(view->totalLabel(), 36);
    int bottom = placeOf(view->barChart()).bottom();
    for (const auto& row : view->appRows()) {
        expectWhole(*row.name, 27);
        expectWhole(*row.time, 27);
        EXPECT_GT(placeOf(*row.name).top(), bottom);
        bottom = placeOf(*row.name).bottom();
    }
    EXPECT_GT(bottom, view->height());
}

} // namespace

} // namespace orrinvale
