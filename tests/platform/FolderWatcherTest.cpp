// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxFolderWatcher.h"

#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <future>
#include <latch>
#include <utility>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace
{

struct FolderWatcherTest : testing::Test {
    void touch(const std::string& name) { std::ofstream(folder / name) << "x"; }
    Cancellable count()
    {
        return watcher.watch(folder, [this] { ++changes; });
    }
    bool changesReach(int number)
    {
        return waitFor([&] { return changes >= number; }, 2s);
    }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
    std::atomic<int> changes = 0;
    QtMainQueue queue;
    LinuxFolderWatcher watcher{queue};
};

// A folder whose file system does not answer, until its end; the administrator alone may mount one.
class HungFolder
{
public:
    explicit HungFolder(fs::path path) : m_path(std::move(path)), m_server(::open("/dev/fuse", O_RDWR | O_CLOEXEC))
    {
        fs::create_directory(m_path);
        const auto options = "fd=" + std::to_string(m_server) + ",rootmode=40000,user_id=0,group_id=0";
        m_isMounted = m_server >= 0 && ::mount("hung", m_path.c_str(), "fuse", 0, options.c_str()) == 0;
    }
    ~HungFolder()
    {
        end();
        if (m_isMounted)
            ::umount2(m_path.c_str(), MNT_DETACH);
    }
    HungFolder(const HungFolder&) = delete;
    HungFolder& operator=(const HungFolder&) = delete;

    bool isMounted() const { return m_isMounted; }
    // What waits for the file system fails.
    void end()
    {
        if (m_server >= 0)
            ::close(std::exchange(m_server, -1));
    }

private:
    fs::path m_path;
    int m_server;
    bool m_isMounted = false;
};

TEST_F(FolderWatcherTest, TellsOfEntriesThatComeMoveAndGo)
{
    const auto token = count();
    ASSERT_TRUE(token);
    touch("a");
    EXPECT_TRUE(changesReach(1));
    fs::rename(folder / "a", folder / "b");
    EXPECT_TRUE(changesReach(2));
    fs::remove(folder / "b");
    EXPECT_TRUE(changesReach(3));
}

TEST_F(FolderWatcherTest, WritingToAFileIsNoChange)
{
    touch("a");
    const auto token = count();
    for (int i = 0; i < 100; ++i)
        std::ofstream(folder / "a", std::ios::app) << "more";
    runEventsFor(50ms);
    EXPECT_EQ(changes, 0);
}

TEST_F(FolderWatcherTest, AfterTheTokenNoCallStarts)
{
    auto token = count();
    token.cancel();
    touch("a");
    runEventsFor(50ms);
    EXPECT_EQ(changes, 0);
}

TEST_F(FolderWatcherTest, TwoWatchesOfOneFolderAreIndependent)
{
    const auto stays = count();
    auto goes = count();
    goes.cancel();
    touch("a");
    EXPECT_TRUE(changesReach(1));
}

// The kernel has one watch for both.
TEST_F(FolderWatcherTest, AWatchThatEndsTakesNoneThatBeginsAlong)
{
    for (int round = 0; round < 1000; ++round) {
        auto goes = watcher.watch(folder, [] {});
        std::latch both(2);
        std::thread other([&] {
            both.arrive_and_wait();
            goes.cancel();
        });
        both.arrive_and_wait();
        changes = 0;
        const auto stays = count();
        other.join();
        touch("a");
        fs::remove(folder / "a");
        ASSERT_TRUE(changesReach(1)) << "round " << round;
    }
}

TEST_F(FolderWatcherTest, AFolderThatHangsHoldsUpNoOther)
{
    HungFolder hung(folder / "hung");
    if (!hung.isMounted())
        GTEST_SKIP() << "this machine has no FUSE";
    auto token = count();
    const auto opened = std::async(std::launch::async,
                                   [&] { return static_cast<bool>(watcher.watch(folder / "hung" / "inner", [] {})); });
    runEventsFor(50ms);
    touch("a");
    EXPECT_TRUE(changesReach(1));
    const auto cancelled = std::async(std::launch::async, [&] { token.cancel(); });
    EXPECT_EQ(cancelled.wait_for(2s), std::future_status::ready);
    EXPECT_EQ(opened.wait_for(0s), std::future_status::timeout);
    hung.end();
    EXPECT_EQ(opened.wait_for(2s), std::future_status::ready);
}

TEST_F(FolderWatcherTest, AFileOrAMissingFolderCannotBeOpened)
{
    touch("file");
    EXPECT_FALSE(watcher.watch(folder / "file", [] {}));
    EXPECT_FALSE(watcher.watch(folder / "missing", [] {}));
    EXPECT_EQ(watcher.entries(folder / "file"), std::nullopt);
    EXPECT_EQ(watcher.entries(folder / "missing"), std::nullopt);
}

TEST_F(FolderWatcherTest, ListsDirectEntriesWithoutTheHiddenOnes)
{
    touch("film.part");
    touch(".hidden.part");
    fs::create_directory(folder / "Safari.download");
    touch("Safari.download/inner.part");
    const auto entries = watcher.entries(folder);
    ASSERT_TRUE(entries);
    std::vector<std::string> names;
    for (const auto& entry : *entries)
        names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Safari.download", "film.part"}));
}

TEST_F(FolderWatcherTest, DatesAreThoseOfTheContent)
{
    touch("a");
    const timespec times[2] = {{0, 0}, {1'000'000'000, 500'000'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (folder / "a").c_str(), times, 0), 0);
    EXPECT_EQ(watcher.entries(folder)->at(0).modified, Instant(1'000'000'000'500ms));
}

TEST_F(FolderWatcherTest, DatesBeyondTheClockAreClamped)
{
    touch("a");
    const timespec times[2] = {{0, 0}, {15'000'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (folder / "a").c_str(), times, 0), 0);
    EXPECT_GT(watcher.entries(folder)->at(0).modified, Instant(4'000'000'000s));
}

TEST_F(FolderWatcherTest, AnyBytesAreAName)
{
    touch("M\xFCtze\n\"<b>.part");
    touch(std::string(255, 'x'));
    EXPECT_EQ(watcher.entries(folder)->size(), 2u);
}

TEST_F(FolderWatcherTest, ADanglingLinkIsSkipped)
{
    fs::create_symlink("nowhere", folder / "link.part");
    EXPECT_TRUE(watcher.entries(folder)->empty());
}

TEST_F(FolderWatcherTest, TenThousandEntriesAreListedWell)
{
    for (int i = 0; i < 10'000; ++i)
        ::close(::open((folder / std::to_string(i)).c_str(), O_CREAT | O_WRONLY, 0600));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(watcher.entries(folder)->size(), 10'000u);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
}

// From here on this process cannot list folders.
bool refuseListing()
{
    const std::array<sock_filter, 4> filter{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_getdents64, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EIO),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program{static_cast<unsigned short>(filter.size()), const_cast<sock_filter*>(filter.data())};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

TEST_F(FolderWatcherTest, AListingThatBreaksOffIsNoListing)
{
    touch("film.part");
    const auto child = ::fork();
    if (child == 0)
        ::_exit(refuseListing() && !watcher.entries(folder) ? 0 : 1);
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(watcher.entries(folder)->size(), 1u);
}

} // namespace

} // namespace orrinvale
