// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityLogWindowController.h"

#include "base/AtomicFile.h"
#include "base/Timestamp.h"
#include "kit/WindowButton.h"
#include "orrinvale/ActivityLogView.h"
#include "orrinvale/ActivityPalette.h"
#include "orrinvale/DayDetailView.h"
#include "orrinvale/HeatmapView.h"
#include "platform/fake/FakeFilePanels.h"
#include "tests/interface/WindowFixture.h"

#include <QAccessible>

#include <fstream>

namespace orrinvale
{

namespace
{

using Category = PersistedStateCategory;

Instant at(const char* timestamp)
{
    return timestampFromText(timestamp).value();
}

struct ActivityLogWindowControllerTest : InterfaceFixture {
    ActivityLogWindowControllerTest() { time.setWallClock(at("2026-10-28T15:00:00Z")); }

    ActivityLogWindowController& log(const LocalCalendar& which)
    {
        if (!controller)
            controller = std::make_unique<ActivityLogWindowController>(engine(), settings(), platform(), which, panels);
        settle();
        return *controller;
    }
    ActivityLogWindowController& log() { return log(english); }
    ActivityLogView& view() { return log().view(); }
    HeatmapView& heatmap() { return view().heatmapView(); }
    DayDetailView& detail() { return view().dayDetailView(); }
    void open()
    {
        log().showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&log().window()));
    }
    void publish(std::vector<ActivityEntry> entries)
    {
        engine().activityLog.set(std::move(entries));
        settle();
    }
    static std::vector<ActivityEntry> threeCategories()
    {
        return {{UUID::random(), at("2026-10-28T14:05:09Z"), "Nothing to wait for", Category::idle},
                {UUID::random(), at("2026-10-28T14:04:39Z"), "Download finished", Category::cooldown},
                {UUID::random(), at("2026-10-28T09:26:53Z"), "film [1].mkv — ünï.part", Category::awake}};
    }
    void use(const char* key, int hour, double seconds)
    {
        auto days = engine().appUsageTracker().days.get();
        auto& record = days[key];
        record.dateKey = key;
        record.hourlySeconds[static_cast<std::size_t>(hour)] = seconds;
        record.appSeconds["app"] = seconds;
        record.appNames["app"] = "App of " + std::string(key);
        engine().appUsageTracker().days.set(days);
        settle();
    }
    const HeatmapCell& cell(const std::string& key)
    {
        picture(heatmap());
        for (const auto& each : heatmap().cellRects())
            if (each.day.dateKey == key)
                return each;
        ADD_FAILURE() << key << " is not drawn";
        return heatmap().cellRects().front();
    }
    void clickDay(const std::string& key)
    {
        QTest::mouseClick(&heatmap(), Qt::LeftButton, {}, heatmap().cellOnScreen(cell(key)).center().toPoint());
    }
    static void press(WindowButton& button) { QTest::mouseClick(&button, Qt::LeftButton, {}, middleOf(button)); }
    void answer(std::optional<std::filesystem::path> path)
    {
        panels.choose(std::move(path));
        settle();
    }
    std::string chosen() const { return readWholeFile(folder.path / "orrinvale-log.txt").value_or("no such file"); }
    void choose(AppTheme theme)
    {
        settings().appTheme.set(theme);
        settings().applyTheme();
        settle();
    }

    TemporaryFolder folder;
    FakeFilePanels panels;
    LocalCalendar english{"UTC", "en_US"};
    std::unique_ptr<ActivityLogWindowController> controller;
};

TEST_F(ActivityLogWindowControllerTest, HasTheWindowOfTheLog)
{
    EXPECT_EQ(log().window().windowTitle(), QStringLiteral("orrinvale — Activity Log"));
    EXPECT_EQ(log().window().size(), QSize(640, 660));
    EXPECT_EQ(log().window().minimumSize(), QSize(520, 480));
    EXPECT_TRUE(log().window().windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_TRUE(log().window().windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_FALSE(log().window().isVisible());
}

TEST_F(ActivityLogWindowControllerTest, TheStatsCountTheEntriesInThePluralAlways)
{
    EXPECT_EQ(view().statsLabel().text(), QStringLiteral("0 entries"));
    publish({threeCategories()[0]});
    EXPECT_EQ(view().statsLabel().text(), QStringLiteral("1 entries"));
    publish(threeCategories());
    EXPECT_EQ(view().statsLabel().text(), QStringLiteral("3 entries"));
    publish(std::vector(200, threeCategories()[0]));
    EXPECT_EQ(view().statsLabel().text(), QStringLiteral("200 entries"));
}

TEST_F(ActivityLogWindowControllerTest, AFreshOneShowsTheLogAsItIs)
{
    engine().activityLog.set(threeCategories());
    EXPECT_EQ(view().statsLabel().text(), QStringLiteral("3 entries"));
    EXPECT_EQ(log().entries().size(), 3u);
    EXPECT_EQ(cell("2026-10-28").day.count, 1);
}

TEST_F(ActivityLogWindowControllerTest, FollowsTheLogWhileOpen)
{
    open();
    EXPECT_EQ(cell("2026-10-28").day.count, 0);
    publish(threeCategories());
    EXPECT_EQ(cell("2026-10-28").day.count, 1);
    EXPECT_EQ(heatmap().tooltipOf(cell("2026-10-28")), QStringLiteral("Oct 28, 2026 — 1 active period"));
    EXPECT_EQ(log().entries().size(), 3u);
}

TEST_F(ActivityLogWindowControllerTest, FollowsTheUsageOfTheSelectedDayWhileOpen)
{
    open();
    EXPECT_TRUE(detail().emptyLabel().isVisible());
    use("2026-10-28", 9, 2700);
    EXPECT_EQ(detail().totalLabel().text(), QStringLiteral("45m"));
    EXPECT_FALSE(detail().emptyLabel().isVisible());
    use("2026-10-28", 10, 3600);
    EXPECT_EQ(detail().totalLabel().text(), QStringLiteral("1h 45m"));
    use("2026-10-20", 10, 7200);
    EXPECT_EQ(detail().totalLabel().text(), QStringLiteral("1h 45m"));
}

TEST_F(ActivityLogWindowControllerTest, AnotherTimeZoneMovesWhatHappenedToItsDays)
{
    qputenv("TZ", "Europe/Berlin");
    LocalCalendar travelling({}, "en_US");
    travelling.readTimeZone();
    log(travelling).showWindow();
    publish(threeCategories()); // awake at half past ten, in Berlin
    EXPECT_EQ(cell("2026-10-28").day.count, 1);
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("TODAY"));
    time.setWallClock(at("2026-10-28T23:30:00Z"));
    qputenv("TZ", "Pacific/Honolulu");
    travelling.readTimeZone();
    settle();
    EXPECT_EQ(cell("2026-10-27").day.count, 1); // half past eleven at night, the day before
    EXPECT_EQ(cell("2026-10-28").day.count, 0);
    qunsetenv("TZ");
    controller.reset();
}

TEST_F(ActivityLogWindowControllerTest, AClickOnADayShowsThatDay)
{
    use("2026-10-20", 9, 2700);
    open();
    clickDay("2026-10-20");
    EXPECT_EQ(english.dateKey(log().selectedDate()), "2026-10-20");
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("Tuesday, Oct 20"));
    EXPECT_EQ(detail().totalLabel().text(), QStringLiteral("45m"));
    EXPECT_EQ(detail().appRows()[0].name->text(), QStringLiteral("App of 2026-10-20"));
    EXPECT_TRUE(heatmap().isSelected(cell("2026-10-20")));
    clickDay("2026-10-19");
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("Monday, Oct 19"));
    EXPECT_TRUE(detail().emptyLabel().isVisible());
    EXPECT_EQ(detail().totalLabel().text(), QStringLiteral("< 1m"));
}

TEST_F(ActivityLogWindowControllerTest, AClickBetweenTheDaysLeavesTheSelection)
{
    open();
    clickDay("2026-10-20");
    const auto place = heatmap().cellOnScreen(cell("2026-10-19")).toRect();
    QTest::mouseClick(&heatmap(), Qt::LeftButton, {}, place.topRight() + QPoint(2, 5));
    EXPECT_EQ(english.dateKey(log().selectedDate()), "2026-10-20");
}

TEST_F(ActivityLogWindowControllerTest, TheArrowsMoveTheDayAndTheDetailFollows)
{
    open();
    QTest::keyClick(&heatmap(), Qt::Key_Left);
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("Wednesday, Oct 21"));
    QTest::keyClick(&heatmap(), Qt::Key_Up);
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("Tuesday, Oct 20"));
    QTest::keyClick(&heatmap(), Qt::Key_End);
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("TODAY"));
    QTest::keyClick(&heatmap(), Qt::Key_Home);
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("Sunday, Jul 5"));
}

TEST_F(ActivityLogWindowControllerTest, ANewEntryKeepsTheSelectedDay)
{
    open();
    clickDay("2026-10-20");
    publish(threeCategories());
    EXPECT_TRUE(heatmap().isSelected(cell("2026-10-20")));
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("Tuesday, Oct 20"));
}

TEST_F(ActivityLogWindowControllerTest, ShowingItSelectsToday)
{
    open();
    clickDay("2026-10-20");
    log().window().close();
    time.setWallClock(at("2026-10-29T08:00:00Z"));
    open();
    EXPECT_EQ(log().selectedDate(), time.now());
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("TODAY"));
    EXPECT_TRUE(heatmap().isSelected(cell("2026-10-29")));
}

TEST_F(ActivityLogWindowControllerTest, LeftOpenPastMidnightItCountsAnew)
{
    open();
    time.setWallClock(at("2026-10-29T00:05:00Z"));
    use("2026-10-29", 0, 120);
    EXPECT_EQ(heatmap().cellRects().empty(), false);
    EXPECT_EQ(cell("2026-10-29").day.count, 0);
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("Wednesday, Oct 28"));
    clickDay("2026-10-29");
    EXPECT_EQ(detail().dateLabel().text(), QStringLiteral("TODAY"));
    EXPECT_EQ(detail().totalLabel().text(), QStringLiteral("2m"));
}

TEST_F(ActivityLogWindowControllerTest, ClearEmptiesLogHeatmapAndStoreAtOnce)
{
    publish(threeCategories());
    engine().logStore().save(threeCategories());
    time.advance(5s);
    ASSERT_EQ(engine().logStore().load().size(), 3u);
    open();
    press(view().clearButton());
    EXPECT_EQ(engine().activityLog.get().size(), 0u);
    time.runPending();
    EXPECT_EQ(view().statsLabel().text(), QStringLiteral("0 entries"));
    EXPECT_EQ(cell("2026-10-28").day.count, 0);
    EXPECT_THAT(log().entries(), IsEmpty());
    time.advance(5s);
    EXPECT_EQ(readWholeFile(engine().logStore().fileURL()), "[]");
}

TEST_F(ActivityLogWindowControllerTest, ClearKeepsTheUsage)
{
    use("2026-10-28", 9, 2700);
    open();
    press(view().clearButton());
    settle();
    EXPECT_EQ(detail().totalLabel().text(), QStringLiteral("45m"));
}

TEST_F(ActivityLogWindowControllerTest, ReturnElsewhereDoesNotClear)
{
    publish(threeCategories());
    open();
    QTest::keyClick(&heatmap(), Qt::Key_Return);
    QTest::keyClick(&log().window(), Qt::Key_Return);
    QTest::keyClick(&view().exportButton(), Qt::Key_Escape);
    EXPECT_EQ(engine().activityLog.get().size(), 3u);
}

TEST_F(ActivityLogWindowControllerTest, ExportAsksWhereTo)
{
    open();
    press(view().exportButton());
    ASSERT_TRUE(panels.saveRequest);
    EXPECT_EQ(panels.saveRequest->fileName, "orrinvale-log.txt");
    EXPECT_EQ(panels.saveRequest->contentType, "text/plain");
    EXPECT_EQ(panels.saveRequest->window, log().window().winId());
    EXPECT_FALSE(panels.folderRequest);
}

TEST_F(ActivityLogWindowControllerTest, ExportAsksOnceWhileThePanelIsOpenAndAnewAfterwards)
{
    open();
    for (int i = 0; i < 3; ++i)
        press(view().exportButton());
    EXPECT_EQ(panels.questions, 1);
    answer(folder.path / "one");
    press(view().exportButton());
    EXPECT_EQ(panels.questions, 2);
    answer(std::nullopt);
    press(view().exportButton());
    EXPECT_EQ(panels.questions, 3);
}

TEST_F(ActivityLogWindowControllerTest, ExportWritesALinePerEntryNewestFirst)
{
    publish(threeCategories());
    press(view().exportButton());
    answer(folder.path / "orrinvale-log.txt");
    const auto clock = [this](const char* timestamp) { return english.mediumTime(at(timestamp)); };
    EXPECT_EQ(chosen(), "[" + clock("2026-10-28T14:05:09Z") + "] [Idle] Nothing to wait for\n[" +
                            clock("2026-10-28T14:04:39Z") + "] [Cooling Down] Download finished\n[" +
                            clock("2026-10-28T09:26:53Z") + "] [Awake] film [1].mkv — ünï.part");
    EXPECT_EQ(withPlainSpaces(QString::fromStdString(clock("2026-10-28T14:05:09Z"))), QStringLiteral("2:05:09 PM"));
}

TEST_F(ActivityLogWindowControllerTest, ExportUsesTheUsersTimes)
{
    const LocalCalendar german("Europe/Berlin", "de_DE");
    log(german);
    publish({threeCategories()[2]});
    press(controller->view().exportButton());
    answer(folder.path / "orrinvale-log.txt");
    EXPECT_EQ(chosen(), "[10:26:53] [Awake] film [1].mkv — ünï.part");
}

TEST_F(ActivityLogWindowControllerTest, AnEmptyLogIsAnEmptyFile)
{
    press(view().exportButton());
    answer(folder.path / "orrinvale-log.txt");
    EXPECT_EQ(chosen(), "");
}

TEST_F(ActivityLogWindowControllerTest, ExportWritesTheLogAsItWasWhenAsked)
{
    publish({threeCategories()[2]});
    press(view().exportButton());
    publish({});
    answer(folder.path / "orrinvale-log.txt");
    EXPECT_THAT(chosen(), testing::EndsWith("[Awake] film [1].mkv — ünï.part"));
}

TEST_F(ActivityLogWindowControllerTest, ExportReplacesAnExistingFile)
{
    std::ofstream(folder.path / "orrinvale-log.txt") << std::string(10000, 'x');
    publish({threeCategories()[2]});
    for (int i = 0; i < 2; ++i) {
        press(view().exportButton());
        answer(folder.path / "orrinvale-log.txt");
        EXPECT_EQ(chosen(), "[" + english.mediumTime(at("2026-10-28T09:26:53Z")) + "] [Awake] film [1].mkv — ünï.part");
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
}

TEST_F(ActivityLogWindowControllerTest, ACancelledExportWritesNothing)
{
    publish(threeCategories());
    press(view().exportButton());
    answer(std::nullopt);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path));
    EXPECT_EQ(engine().activityLog.get().size(), 3u);
}

TEST_F(ActivityLogWindowControllerTest, AFailedExportIsPassedOver)
{
    publish(threeCategories());
    std::ofstream(folder.path / "a file") << "kept";
    // Nobody, not even the administrator, may make files there.
    for (const auto& path : {std::filesystem::path("/proc/orrinvale-log.txt"), folder.path / "missing" / "log.txt",
                             folder.path / "a file" / "log.txt", folder.path}) {
        press(view().exportButton());
        answer(path);
    }
    EXPECT_EQ(readWholeFile(folder.path / "a file"), "kept");
    EXPECT_EQ(view().statsLabel().text(), QStringLiteral("3 entries"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
}

TEST_F(ActivityLogWindowControllerTest, AnAnswerAfterTheWindowIsGoneWritesNothing)
{
    publish(threeCategories());
    press(view().exportButton());
    controller.reset();
    answer(folder.path / "orrinvale-log.txt");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path));
}

TEST_F(ActivityLogWindowControllerTest, AnExportUnderWayOutlivesTheWindow)
{
    publish({threeCategories()[2]});
    press(view().exportButton());
    panels.choose(folder.path / "orrinvale-log.txt");
    controller.reset();
    settle();
    EXPECT_THAT(chosen(), testing::EndsWith("[Awake] film [1].mkv — ünï.part"));
}

// The folder may never answer, and detection must go on.
TEST_F(ActivityLogWindowControllerTest, AnExportKeepsOffTheBackgroundQueue)
{
    struct BusyQueue final : SerialQueue {
        void post(std::function<void()>) override { ++posts; }
        Cancellable after(std::chrono::nanoseconds, std::function<void()>) override { return {}; }
        int posts = 0;
    };
    auto* busy = new BusyQueue;
    fake.background.reset(busy);
    publish({threeCategories()[2]});
    const auto before = busy->posts;
    press(view().exportButton());
    answer(folder.path / "orrinvale-log.txt");
    EXPECT_EQ(busy->posts, before);
    EXPECT_THAT(chosen(), testing::EndsWith("[Awake] film [1].mkv — ünï.part"));
}

TEST_F(ActivityLogWindowControllerTest, MayGoWhileNewsIsOnItsWay)
{
    log();
    engine().activityLog.set(threeCategories());
    engine().appUsageTracker().days.set({});
    controller.reset();
    settle();
}

TEST_F(ActivityLogWindowControllerTest, IsRestyledWhileOpen)
{
    open();
    use("2026-10-28", 9, 2700);
    for (const auto& [theme, look] : {std::pair{AppTheme::dark, Look::dark}, std::pair{AppTheme::sakura, Look::sakura},
                                      std::pair{AppTheme::light, Look::light}}) {
        choose(theme);
        const auto& colours = WindowPalette::of(look);
        EXPECT_EQ(bytes(view().titleLabel().colour()), bytes(colours.primaryText));
        EXPECT_EQ(bytes(view().statsLabel().colour()), bytes(colours.secondaryText));
        EXPECT_EQ(view().titleLabel().text(),
                  look == Look::sakura ? QStringLiteral("🌸  Activity Log") : QStringLiteral("🍵  Activity Log"));
        EXPECT_EQ(heatmap().isDark(), look == Look::dark);
        EXPECT_EQ(heatmap().isSakura(), look == Look::sakura);
        EXPECT_TRUE(isNearly(picture(log().window()).pixelColor(2, 100), colours.window));
        EXPECT_EQ(bytes(detail().appRows()[0].name->colour()),
                  bytes(ActivityPalette::of(look == Look::dark, look == Look::sakura).appName));
    }
}

TEST_F(ActivityLogWindowControllerTest, TheSystemsAppearanceRestylesTheSystemThemeAlone)
{
    open();
    choose(AppTheme::system);
    fake.appearance.switchSystem(true);
    settle();
    EXPECT_TRUE(heatmap().isDark());
    EXPECT_EQ(bytes(view().titleLabel().colour()), bytes(WindowPalette::of(Look::dark).primaryText));
    fake.appearance.switchSystem(false);
    settle();
    EXPECT_FALSE(heatmap().isDark());
    choose(AppTheme::sakura);
    const auto before = picture(log().window());
    fake.appearance.switchSystem(true);
    settle();
    EXPECT_EQ(picture(log().window()), before);
    EXPECT_FALSE(heatmap().isDark());
    EXPECT_TRUE(heatmap().isSakura());
}

TEST_F(ActivityLogWindowControllerTest, NewStatsKeepTheColourOfTheTheme)
{
    choose(AppTheme::sakura);
    publish(threeCategories());
    EXPECT_EQ(bytes(view().statsLabel().colour()), tableColour(0.60, 0.42, 0.48));
}

TEST_F(ActivityLogWindowControllerTest, IsRestyledWhenShown)
{
    open();
    log().window().close();
    settings().appTheme.set(AppTheme::dark);
    settings().applyTheme();
    log().showWindow();
    EXPECT_TRUE(heatmap().isDark());
}

TEST_F(ActivityLogWindowControllerTest, OpensOnTheHeatmapAndTabsThroughItsButtons)
{
    open();
    EXPECT_TRUE(heatmap().hasFocus());
    EXPECT_FALSE(heatmap().showsFocusRing());
    const auto tab = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); };
    tab();
    EXPECT_TRUE(view().clearButton().hasFocus());
    EXPECT_TRUE(view().clearButton().showsFocusRing());
    tab();
    EXPECT_TRUE(view().exportButton().hasFocus());
    tab();
    EXPECT_TRUE(heatmap().hasFocus());
    EXPECT_TRUE(heatmap().showsFocusRing());
}

TEST_F(ActivityLogWindowControllerTest, TheKeyboardClearsAndExports)
{
    publish(threeCategories());
    open();
    QTest::keyClick(&view().exportButton(), Qt::Key_Return);
    EXPECT_TRUE(panels.isOpen());
    QTest::keyClick(&view().clearButton(), Qt::Key_Space);
    EXPECT_EQ(engine().activityLog.get().size(), 0u);
}

TEST_F(ActivityLogWindowControllerTest, EscapeClosesItFromWhereverTheFocusIs)
{
    for (auto* focused : std::initializer_list<QWidget*>{&heatmap(), &view().clearButton(), &view().exportButton()}) {
        open();
        focused->setFocus();
        QTest::keyClick(focused, Qt::Key_Escape);
        EXPECT_FALSE(log().window().isVisible());
    }
}

} // namespace

} // namespace orrinvale
