// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/DownloadMonitor.h"

#include "base/ThreadSerialQueue.h"
#include "tests/logic/LogicFixture.h"

#include <mutex>
#include <semaphore>

namespace orrinvale
{

namespace
{

const std::string folder = "/home/anna/Downloads";

struct DownloadMonitorTest : LogicFixture {
    DownloadMonitorTest() { fake.folderWatcher.folders[folder]; }

    void put(const std::string& name, std::chrono::nanoseconds age = 0s)
    {
        fake.folderWatcher.folders[folder].push_back(
            {name, time.now() - std::chrono::duration_cast<Instant::duration>(age)});
    }
    void start()
    {
        monitor->start();
        time.runPending();
    }
    std::vector<std::string> details() const
    {
        std::vector<std::string> texts;
        for (const auto& signal : monitor->signals.get())
            texts.push_back(signal.detail);
        return texts;
    }

    std::optional<DownloadMonitor> monitor{std::in_place, platform(), settings()};
};

struct Row {
    const char* test;
    std::string file;
    std::string name;
    std::optional<std::string> bundleID;
};

class PartialSuffix : public testing::TestWithParam<Row>
{
};

TEST_P(PartialSuffix, NamesItsApplication)
{
    const auto now = VirtualTime::defaultStart;
    const auto signals = activeDownloads({{GetParam().file, now}}, now);
    ASSERT_EQ(signals.size(), 1u);
    EXPECT_EQ(signals[0].detail, "Downloading " + GetParam().file);
    EXPECT_EQ(signals[0].source, SignalSource::download);
    EXPECT_EQ(signals[0].score, 5);
    EXPECT_EQ(signals[0].timestamp, now);
    EXPECT_EQ(signals[0].appName, GetParam().name);
    EXPECT_EQ(signals[0].appBundleID, GetParam().bundleID);
}

INSTANTIATE_TEST_SUITE_P(Table, PartialSuffix,
                         testing::Values(Row{"Safari", "a.download", "Safari", "com.apple.Safari"},
                                         Row{"Chrome", "a.crdownload", "Chrome", "com.google.Chrome"},
                                         Row{"Firefox", "a.part", "Firefox", "org.mozilla.firefox"},
                                         Row{"Opera", "a.opdownload", "Opera", "com.operasoftware.Opera"},
                                         Row{"Aria2", "a.aria2", "aria2", std::nullopt},
                                         Row{"QBittorrent", "a.!qB", "qBittorrent", "org.qbittorrent.qbittorrent"},
                                         Row{"Accelerator", "a.dap", "Download Accelerator", std::nullopt},
                                         Row{"Temporary", "a.tmp", "Download", std::nullopt},
                                         Row{"CaseDoesNotMatter", "Movie.MKV.CRDOWNLOAD", "Chrome",
                                             "com.google.Chrome"}),
                         [](const auto& row) { return row.param.test; });

TEST_F(DownloadMonitorTest, OtherSuffixesAreNoDownloads)
{
    for (const auto* name : {"film.mkv", "part", "a.parts", "a.part.mkv", "a.crdownload "})
        put(name);
    start();
    EXPECT_THAT(details(), IsEmpty());
}

TEST_F(DownloadMonitorTest, ActiveWhileModifiedLessThanTenSecondsAgo)
{
    put("fresh.part", 9900ms);
    put("stalled.part", 10s);
    put("future.part", -1h);
    start();
    EXPECT_THAT(details(), ElementsAre("Downloading fresh.part", "Downloading future.part"));
}

TEST_F(DownloadMonitorTest, DatesAtTheEdgeOfTheClockDoNotWrapAround)
{
    const auto now = VirtualTime::defaultStart;
    EXPECT_TRUE(activeDownloads({{"a.part", Instant::min()}}, now).empty());
    EXPECT_EQ(activeDownloads({{"a.part", Instant::max()}}, now).size(), 1u);
}

TEST_F(DownloadMonitorTest, BrokenNamesBecomeText)
{
    put("M\xFCtze.part");
    start();
    EXPECT_THAT(details(), ElementsAre("Downloading M\xEF\xBF\xBDtze.part"));
}

TEST_F(DownloadMonitorTest, EveryScanRepublishesFreshIdentifiers)
{
    put("film.part");
    start();
    const auto first = monitor->signals.get().at(0).id;
    time.advance(5s);
    EXPECT_NE(monitor->signals.get().at(0).id, first);
}

TEST_F(DownloadMonitorTest, AnEmptyFolderPublishesAnEmptyListOnEveryScan)
{
    int announced = 0;
    const auto token = monitor->signals.observe([&](const auto&) { ++announced; }, Deliver::changesOnly);
    start();
    time.advance(10s);
    EXPECT_EQ(announced, 3);
}

TEST_F(DownloadMonitorTest, AFolderEventScansAtOnce)
{
    start();
    put("film.part");
    fake.folderWatcher.notify(folder);
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("Downloading film.part"));
}

TEST_F(DownloadMonitorTest, EventsWhileAScanIsPendingCoalesce)
{
    start();
    const auto before = fake.folderWatcher.listings;
    for (int i = 0; i < 50; ++i)
        fake.folderWatcher.notify(folder);
    time.runPending();
    EXPECT_LE(fake.folderWatcher.listings - before, 2);
    EXPECT_GE(fake.folderWatcher.listings - before, 1);
}

TEST_F(DownloadMonitorTest, AnEventDuringAScanIsSeenWithoutWaitingForThePoll)
{
    start();
    fake.folderWatcher.afterListing = [this] {
        put("film.part");
        fake.folderWatcher.notify(folder);
    };
    fake.folderWatcher.notify(folder);
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("Downloading film.part"));
}

TEST_F(DownloadMonitorTest, AMissingFolderIsOneLineAndPollsLeaveTheSignalsAlone)
{
    put("film.part");
    start();
    fake.folderWatcher.folders.clear();
    testing::internal::CaptureStdout();
    settings().downloadsFolderPath.set("/nowhere");
    time.runPending();
    time.advance(20s);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "⚠️ DownloadMonitor: could not open Downloads directory\n");
    EXPECT_THAT(details(), ElementsAre("Downloading film.part"));
}

TEST_F(DownloadMonitorTest, AFolderMadeAgainIsSeenByTheNextPoll)
{
    fake.folderWatcher.folders.clear();
    testing::internal::CaptureStdout();
    start();
    testing::internal::GetCapturedStdout();
    put("film.part");
    time.advance(5s);
    EXPECT_THAT(details(), ElementsAre("Downloading film.part"));
}

TEST_F(DownloadMonitorTest, ANewPathIsWatchedAndScannedAtOnce)
{
    start();
    fake.folderWatcher.folders["/elsewhere"] = {{"other.part", time.now()}};
    settings().downloadsFolderPath.set("/elsewhere");
    time.runPending();
    EXPECT_THAT(details(), ElementsAre("Downloading other.part"));
    EXPECT_THAT(fake.folderWatcher.watched, ElementsAre(folder, "/elsewhere"));
    EXPECT_EQ(fake.folderWatcher.liveWatches(), 1u);
}

TEST_F(DownloadMonitorTest, AResultForAnEarlierPathIsDropped)
{
    put("old.part");
    start();
    fake.folderWatcher.folders["/elsewhere"] = {};
    std::vector<std::size_t> sizes;
    const auto token =
        monitor->signals.observe([&](const auto& list) { sizes.push_back(list.size()); }, Deliver::changesOnly);
    fake.folderWatcher.notify(folder);
    settings().downloadsFolderPath.set("/elsewhere");
    time.runPending();
    EXPECT_TRUE(monitor->signals.get().empty());
    EXPECT_EQ(sizes.back(), 0u);
}

TEST_F(DownloadMonitorTest, AFolderThatFailsToOpenIsToldOnceForEachPath)
{
    start();
    fake.folderWatcher.folders.clear();
    testing::internal::CaptureStdout();
    for (const auto* path : {"/nowhere", "/nowhere else"}) {
        settings().downloadsFolderPath.set(path);
        time.runPending();
        time.advance(20s);
    }
    const std::string line = "⚠️ DownloadMonitor: could not open Downloads directory\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), line + line);
}

TEST_F(DownloadMonitorTest, AWatchThatComesLateForAnEarlierPathIsDropped)
{
    fake.folderWatcher.folders["/elsewhere"] = {{"other.part", time.now()}};
    fake.folderWatcher.whileOpening = [this] {
        settings().downloadsFolderPath.set("/elsewhere");
        time.runPending();
    };
    start();
    EXPECT_THAT(fake.folderWatcher.watched, ElementsAre(folder, "/elsewhere"));
    EXPECT_THAT(details(), ElementsAre("Downloading other.part"));
    EXPECT_EQ(fake.folderWatcher.liveWatches(), 1u);
    const auto before = fake.folderWatcher.listings;
    fake.folderWatcher.notify("/elsewhere");
    time.runPending();
    EXPECT_EQ(fake.folderWatcher.listings, before + 1);
}

TEST_F(DownloadMonitorTest, AFailureThatComesLateForAnEarlierPathIsNotTold)
{
    fake.folderWatcher.folders["/elsewhere"];
    fake.folderWatcher.folders.erase(folder);
    fake.folderWatcher.whileOpening = [this] {
        settings().downloadsFolderPath.set("/elsewhere");
        time.runPending();
    };
    testing::internal::CaptureStdout();
    start();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(fake.folderWatcher.liveWatches(), 1u);
}

TEST_F(DownloadMonitorTest, AWatchThatComesAfterTheStopIsDropped)
{
    fake.folderWatcher.whileOpening = [this] { monitor->stop(); };
    start();
    EXPECT_THAT(fake.folderWatcher.watched, ElementsAre(folder));
    EXPECT_EQ(fake.folderWatcher.liveWatches(), 0u);
}

TEST_F(DownloadMonitorTest, StopEmptiesTheListAndLeavesNothingRunning)
{
    put("film.part");
    start();
    fake.folderWatcher.notify(folder);
    monitor->stop();
    time.runPending();
    time.advance(20s);
    EXPECT_TRUE(monitor->signals.get().empty());
    EXPECT_EQ(time.timerCount(), 0u);
    EXPECT_EQ(fake.folderWatcher.liveWatches(), 0u);
}

TEST_F(DownloadMonitorTest, MayBeDestroyedWhileAScanIsOnItsWay)
{
    monitor->start();
    fake.folderWatcher.notify(folder);
    monitor.reset();
    time.runPending();
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(DownloadMonitorTest, MayBeDestroyedWhileItsFolderIsBeingOpened)
{
    fake.folderWatcher.whileOpening = [this] { monitor.reset(); };
    start();
    EXPECT_THAT(fake.folderWatcher.watched, ElementsAre(folder));
    EXPECT_EQ(fake.folderWatcher.liveWatches(), 0u);
}

// A main queue that real threads may post to; its timers are in virtual time.
class ThreadedMainQueue final : public MainQueue
{
public:
    explicit ThreadedMainQueue(VirtualTime& time) : m_time(time) {}

    void post(std::function<void()> work) override
    {
        const std::lock_guard lock(m_mutex);
        m_posted.push_back(std::move(work));
    }
    Cancellable after(std::chrono::nanoseconds delay, std::function<void()> work) override
    {
        return m_time.after(delay, std::move(work));
    }
    Cancellable every(std::chrono::nanoseconds interval, std::function<void()> work) override
    {
        return m_time.every(interval, std::move(work));
    }
    void runPending()
    {
        std::vector<std::function<void()>> due;
        {
            const std::lock_guard lock(m_mutex);
            due.swap(m_posted);
        }
        for (const auto& work : due)
            work();
    }

private:
    VirtualTime& m_time;
    std::mutex m_mutex;
    std::vector<std::function<void()>> m_posted;
};

// Opens its folder when told to, and fails when that takes too long.
struct SlowFolderWatcher final : FolderWatcher {
    Cancellable watch(const std::string&, std::function<void()>) override
    {
        opening.release();
        return mayOpen.try_acquire_for(10s) ? Cancellable([] {}) : Cancellable();
    }
    std::optional<std::vector<FolderEntry>> entries(const std::string&) override { return {{{"film.part", now}}}; }

    const Instant now = VirtualTime::defaultStart;
    std::binary_semaphore opening{0};
    std::binary_semaphore mayOpen{0};
};

struct SlowMachine : FakePlatform {
    ThreadedMainQueue mainQueue{time};
    ThreadSerialQueues serialQueues{mainQueue};
    SlowFolderWatcher folderWatcher;
};

TEST_F(DownloadMonitorTest, AFolderThatHangsWhileItOpensHoldsUpTheScansAlone)
{
    SlowMachine machine;
    auto& folders = machine.folderWatcher;
    const auto slow = platformOf(machine);
    monitor.emplace(slow, settings());
    const auto begin = std::chrono::steady_clock::now();
    monitor->start();
    ASSERT_TRUE(folders.opening.try_acquire_for(10s));
    machine.time.advance(7s); // a poll
    machine.mainQueue.runPending();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    EXPECT_THAT(details(), IsEmpty());
    folders.mayOpen.release();
    while (details().empty() && std::chrono::steady_clock::now() - begin < 20s) {
        std::this_thread::sleep_for(1ms);
        machine.mainQueue.runPending();
    }
    EXPECT_THAT(details(), ElementsAre("Downloading film.part"));
    monitor.reset();
}

} // namespace

} // namespace orrinvale
