// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxCamera.h"

#include "base/ThreadSerialQueue.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sched.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace
{

struct CameraTest : testing::Test {
    CameraTest()
    {
        std::ofstream(folder / "video0") << "x"; // stands for a device node, which only root could make
    }

    struct Holder {
        explicit Holder(const fs::path& file)
        {
            process.setStandardInputFile(QString::fromStdString(file.string()));
            process.start(QStringLiteral("sleep"), {QStringLiteral("30")});
            process.waitForStarted();
        }
        ~Holder()
        {
            process.kill();
            process.waitForFinished();
        }
        QProcess process;
    };
    bool becomes(bool inUse)
    {
        return waitFor([&] { return camera->isInUse() == inUse; });
    }
    void make() { camera.emplace(queue, background, folder.string()); }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
    QtMainQueue queue;
    ThreadSerialQueue background{queue, "test"};
    std::optional<LinuxCamera> camera;
};

TEST_F(CameraTest, NobodyHoldsItAtFirst)
{
    make();
    EXPECT_FALSE(camera->isInUse());
}

TEST_F(CameraTest, AProcessThatHoldsTheNodeCountsUntilItLetsGo)
{
    make();
    EXPECT_FALSE(camera->isInUse());
    {
        const Holder holder(folder / "video0");
        EXPECT_TRUE(becomes(true));
    }
    EXPECT_TRUE(becomes(false));
}

TEST_F(CameraTest, ACameraThatIsPluggedInLaterCounts)
{
    make();
    EXPECT_FALSE(camera->isInUse());
    std::ofstream(folder / "video1") << "x";
    EXPECT_FALSE(camera->isInUse());
    const Holder holder(folder / "video1");
    EXPECT_TRUE(becomes(true));
}

TEST_F(CameraTest, OtherNodesAreNoCameras)
{
    std::ofstream(folder / "snd0") << "x";
    make();
    const Holder holder(folder / "snd0");
    runEventsFor(100ms);
    EXPECT_FALSE(camera->isInUse());
}

TEST_F(CameraTest, WithoutDevicesNobodyUsesOne)
{
    camera.emplace(queue, background, "/nonexistent");
    EXPECT_FALSE(camera->isInUse());
}

struct DescriptorLimit {
    explicit DescriptorLimit(rlim_t most)
    {
        ::getrlimit(RLIMIT_NOFILE, &before);
        const rlimit limit{most, before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &before); }
    rlimit before{};
};

// Works at once, or holds the work until told; it has descriptors even where the test has none.
struct LookQueue final : SerialQueue {
    LookQueue() { ::getrlimit(RLIMIT_NOFILE, &usual); }

    void post(std::function<void()> work) override
    {
        ++looks;
        held = std::move(work);
        if (!holds)
            run();
    }
    Cancellable after(std::chrono::nanoseconds, std::function<void()>) override { return {}; }
    void run()
    {
        const DescriptorLimit enough(usual.rlim_cur);
        std::exchange(held, nullptr)();
    }

    rlimit usual{};
    std::function<void()> held;
    bool holds = false;
    int looks = 0;
};

TEST_F(CameraTest, AHolderFromBeforeIsKnownAtTheFirstQuestion)
{
    const Holder holder(folder / "video0");
    LookQueue lookQueue; // not slower than the question waits, however busy the machine
    camera.emplace(queue, lookQueue, folder.string());
    EXPECT_TRUE(camera->isInUse());
}

struct RefusedCameraTest : CameraTest {
    RefusedCameraTest() { camera.emplace(queue, lookQueue, folder.string()); }

    // Asks while the kernel refuses to watch.
    bool ask()
    {
        const DescriptorLimit none(0);
        EXPECT_EQ(::inotify_init1(IN_CLOEXEC), -1);
        return camera->isInUse();
    }

    LookQueue lookQueue;
};

TEST_F(CameraTest, ALookThatFindsAnotherAnswerIsAnnounced)
{
    make();
    std::vector<bool> announced;
    const auto token = camera->observeChanges([&] { announced.push_back(camera->isInUse()); });
    EXPECT_FALSE(camera->isInUse());
    {
        const Holder holder(folder / "video0");
        EXPECT_FALSE(camera->isInUse());
        EXPECT_TRUE(waitFor([&] { return !announced.empty(); }));
        EXPECT_THAT(announced, ElementsAre(true));
    }
    EXPECT_TRUE(camera->isInUse());
    EXPECT_TRUE(waitFor([&] { return announced.size() > 1; }));
    EXPECT_THAT(announced, ElementsAre(true, false));
}

TEST_F(CameraTest, AnAnswerThatTheQuestionWaitedForIsNotAnnounced)
{
    const Holder holder(folder / "video0");
    LookQueue lookQueue;
    camera.emplace(queue, lookQueue, folder.string());
    int announced = 0;
    const auto token = camera->observeChanges([&] { ++announced; });
    EXPECT_TRUE(camera->isInUse());
    runEventsFor(10ms);
    EXPECT_EQ(announced, 0);
}

TEST_F(CameraTest, AFirstAnswerThatCameTooLateIsAnnounced)
{
    const Holder holder(folder / "video0");
    LookQueue lookQueue;
    lookQueue.holds = true;
    camera.emplace(queue, lookQueue, folder.string());
    int announced = 0;
    const auto token = camera->observeChanges([&] { ++announced; });
    EXPECT_FALSE(camera->isInUse());
    lookQueue.run();
    EXPECT_EQ(announced, 0); // not in this turn
    runEventsFor(10ms);
    EXPECT_EQ(announced, 1);
    EXPECT_TRUE(camera->isInUse());
}

TEST_F(CameraTest, ALookThatFindsTheSameAnswerIsNotAnnounced)
{
    LookQueue lookQueue;
    camera.emplace(queue, lookQueue, folder.string());
    int announced = 0;
    const auto token = camera->observeChanges([&] { ++announced; });
    EXPECT_FALSE(camera->isInUse());
    runEventsFor(10ms);
    std::ofstream(folder / "video0") << "y"; // opened and closed
    EXPECT_FALSE(camera->isInUse());
    runEventsFor(10ms);
    EXPECT_EQ(lookQueue.looks, 2);
    EXPECT_EQ(announced, 0);
}

TEST_F(CameraTest, AChangeDuringALookIsLookedAtAfterIt)
{
    LookQueue lookQueue;
    camera.emplace(queue, lookQueue, folder.string());
    EXPECT_FALSE(camera->isInUse()); // its look is not delivered yet
    const Holder holder(folder / "video0");
    int announced = 0;
    const auto token = camera->observeChanges([&] { ++announced; });
    EXPECT_FALSE(camera->isInUse());
    EXPECT_EQ(lookQueue.looks, 1);
    EXPECT_TRUE(waitFor([&] { return announced > 0; }));
    EXPECT_EQ(lookQueue.looks, 2);
}

TEST_F(RefusedCameraTest, QuestionsInOneTurnHaveTheSameAnswer)
{
    const Holder holder(folder / "video0");
    EXPECT_TRUE(ask());
    EXPECT_TRUE(ask());
    EXPECT_TRUE(ask());
}

TEST_F(RefusedCameraTest, EveryQuestionLooksAfreshAndTellsWhatIsKnown)
{
    {
        const Holder holder(folder / "video0");
        EXPECT_TRUE(ask());
        runEventsFor(10ms);
    }
    EXPECT_TRUE(ask());
    EXPECT_EQ(lookQueue.looks, 2);
    EXPECT_TRUE(waitFor([&] { return !ask(); }));
}

TEST_F(RefusedCameraTest, OneLookAtMostIsUnderWay)
{
    lookQueue.holds = true;
    ask();
    ask();
    ask();
    EXPECT_EQ(lookQueue.looks, 1);
    lookQueue.run();
    EXPECT_TRUE(waitFor([&] { return lookQueue.looks == 2; }));
    ask();
    runEventsFor(10ms);
    EXPECT_EQ(lookQueue.looks, 2);
}

TEST_F(RefusedCameraTest, AWatchThatIsGrantedLaterSparesTheLooks)
{
    EXPECT_FALSE(ask());
    runEventsFor(10ms);
    EXPECT_FALSE(camera->isInUse());
    EXPECT_EQ(lookQueue.looks, 2);
    runEventsFor(10ms);
    EXPECT_FALSE(camera->isInUse());
    EXPECT_EQ(lookQueue.looks, 2);
    const Holder holder(folder / "video0");
    EXPECT_TRUE(becomes(true));
}

// Runs in a process of its own for whose user the kernel has not one watch left.
bool passesWithoutWatches(const std::function<bool()>& check)
{
    const auto child = ::fork();
    if (child == 0) {
        std::ofstream limit;
        const auto isAlone = ::unshare(CLONE_NEWUSER) == 0;
        limit.open("/proc/sys/user/max_inotify_watches");
        const auto isLimited = static_cast<bool>(limit << "0" << std::flush);
        ::_exit(isAlone && isLimited && check() ? 0 : 1);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && status == 0;
}

TEST_F(CameraTest, WithoutWatchesEveryQuestionLooks)
{
    EXPECT_TRUE(passesWithoutWatches([this] {
        LookQueue lookQueue;
        camera.emplace(queue, lookQueue, folder.string());
        bool isInUse = camera->isInUse();
        for (int i = 0; i < 3; ++i) {
            runEventsFor(10ms);
            isInUse = camera->isInUse() || isInUse;
        }
        return !isInUse && lookQueue.looks == 4;
    }));
}

TEST_F(CameraTest, AFailedLookLeavesTheAnswerAndIsTakenAgain)
{
    const auto proc = folder / "proc";
    fs::create_directory_symlink("/proc", proc);
    LookQueue lookQueue;
    camera.emplace(queue, lookQueue, folder.string(), proc.string());
    const Holder holder(folder / "video0");
    EXPECT_TRUE(camera->isInUse());
    runEventsFor(10ms);
    fs::remove(proc);
    std::ofstream(folder / "video0") << "y"; // opened and closed
    EXPECT_TRUE(camera->isInUse());
    runEventsFor(10ms);
    EXPECT_TRUE(camera->isInUse());
    EXPECT_EQ(lookQueue.looks, 3);
}

} // namespace

} // namespace orrinvale
