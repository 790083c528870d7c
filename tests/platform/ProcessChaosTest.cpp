// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// What looks at processes, while they come and go and say anything.
#include "base/ThreadSerialQueue.h"
#include "platform/linux/ApplicationWalk.h"
#include "platform/linux/LinuxCamera.h"
#include "platform/linux/LinuxProcessStatus.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace
{

constexpr auto longestPause = 1s; // of the main thread, also on a busy machine

struct ProcessChaosTest : testing::Test {
    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
};

// Processes without end that live for a moment, several at a time.
class ForkStorm
{
public:
    ForkStorm() : m_thread([this] { rage(); }) {}
    ~ForkStorm()
    {
        m_isOver = true;
        m_thread.join();
    }
    ForkStorm(const ForkStorm&) = delete;
    ForkStorm& operator=(const ForkStorm&) = delete;
    int processes() const { return m_processes; }

private:
    void rage()
    {
        while (!m_isOver) {
            for (int i = 0; i < 50; ++i) {
                const auto child = ::fork();
                if (child == 0)
                    ::_exit(0);
                m_processes += child > 0 ? 1 : 0;
            }
            while (::waitpid(-1, nullptr, WNOHANG) > 0) {
            }
        }
        while (::waitpid(-1, nullptr, 0) > 0) {
        }
    }

    std::atomic<bool> m_isOver = false;
    std::atomic<int> m_processes = 0;
    std::thread m_thread;
};

// A program of that name, which stays: started through another that ends, so that the storm does not collect it.
class Encoder
{
public:
    explicit Encoder(const fs::path& folder)
    {
        const auto program = folder / "ffmpeg";
        fs::copy_file("/bin/sleep", program);
        std::array<int, 2> pipe{};
        EXPECT_EQ(::pipe(pipe.data()), 0);
        const auto parent = ::fork();
        if (parent == 0) {
            const auto child = ::fork();
            if (child == 0)
                ::execl(program.c_str(), program.c_str(), "1000", nullptr);
            ::_exit(::write(pipe[1], &child, sizeof child) == sizeof child ? 0 : 1);
        }
        EXPECT_EQ(::read(pipe[0], &m_pid, sizeof m_pid), static_cast<ssize_t>(sizeof m_pid));
        ::waitpid(parent, nullptr, 0);
        ::close(pipe[0]);
        ::close(pipe[1]);
    }
    ~Encoder() { ::kill(m_pid, SIGKILL); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

private:
    pid_t m_pid = 0;
};

bool isEncoderIn(const std::vector<RunningApplication>& applications)
{
    return std::any_of(applications.begin(), applications.end(),
                       [](const auto& each) { return each.isKnownAs("org.ffmpeg.FFmpegKit"); });
}

TEST_F(ProcessChaosTest, AForkStormHidesNoApplicationAndHoldsUpNobody)
{
    const Encoder encoder(folder);
    QtMainQueue queue;
    ThreadSerialQueue background(queue, "background"), files(queue, "files");
    LinuxRunningApplications applications(queue, background, files);
    LinuxProcessStatus status(queue, background);
    LinuxCamera camera(queue, background);
    ASSERT_TRUE(waitFor([&] {
        applications.refresh();
        return isEncoderIn(applications.applications());
    }));
    const ForkStorm storm;
    const auto end = steady_clock::now() + 4s;
    while (steady_clock::now() < end) {
        const auto begin = steady_clock::now();
        applications.refresh();
        status.prepare();
        camera.isInUse();
        EXPECT_LT(steady_clock::now() - begin, longestPause);
        EXPECT_TRUE(isEncoderIn(applications.applications()));
        runEventsFor(20ms);
    }
    EXPECT_GT(storm.processes(), 100);
    EXPECT_TRUE(waitFor([&] { return status.table().has_value(); }));
}

// What a file of a process may hold, from nothing to what no kernel writes.
std::string anything(std::mt19937& random)
{
    static const std::vector<std::string> pieces{"",
                                                 "10 (",
                                                 ") ",
                                                 "S ",
                                                 "Z ",
                                                 "18446744073709551615 ",
                                                 "-1 ",
                                                 "1 1 1 0 -1 0 0 0 0 0 5 0 0 0 20 0 1 0 100 0 0\n",
                                                 "0::/app.slice/app-",
                                                 "app-\\x",
                                                 ".scope",
                                                 ".service\n",
                                                 "snap.",
                                                 "\nname=",
                                                 "APPDIR=/",
                                                 "GIO_LAUNCHED_DESKTOP_FILE_PID=10",
                                                 std::string(1, '\0'),
                                                 "\xFF\xFE",
                                                 std::string(5000, 'x')};
    std::string text;
    for (auto count = random() % 6; count > 0; --count)
        text += pieces[random() % pieces.size()];
    return text;
}

TEST_F(ProcessChaosTest, AProcessMaySayAnything)
{
    std::mt19937 random(20261121);
    ApplicationWalk walk(folder.string());
    const auto none = std::make_shared<const DesktopEntryIndex>();
    for (int round = 0; round < 300; ++round) {
        for (int pid = 10; pid < 14; ++pid) {
            const auto process = folder / std::to_string(pid);
            fs::remove_all(process);
            if (random() % 8 == 0)
                continue;
            fs::create_directories(process / "root");
            fs::create_directories(process / "attr");
            for (const auto* name : {"stat", "cgroup", "environ", "cmdline", "root/.flatpak-info", "attr/current"}) {
                if (random() % 4 != 0)
                    std::ofstream(process / name) << anything(random);
            }
            if (random() % 2 == 0)
                std::ofstream(process / "stat") << "10 (x) S 1 1 1 0 -1 0 0 0 0 0 5 0 0 0 20 0 1 0 " << round << " 0\n";
            if (random() % 2 == 0)
                fs::create_symlink("/usr/bin/" + std::string(random() % 2 == 0 ? "python3" : "ffmpeg"),
                                   process / "exe");
        }
        for (const auto& each : walk.walk(none, steady_clock::now() + std::chrono::seconds(round * 20)))
            EXPECT_FALSE(each.bundleIdentifier->empty());
        const auto reading = readProcesses(folder);
        ASSERT_TRUE(reading);
        processTable(folder, {}, *reading, 1s);
    }
}

TEST_F(ProcessChaosTest, FilesThatCannotBeReadAreNoApplication)
{
    const auto process = folder / "10";
    fs::create_directories(process / "stat"); // a folder where a file should be
    fs::create_directories(process / "cgroup");
    fs::create_directories(folder / "11");
    std::ofstream(folder / "99999999999") << "no process";
    ApplicationWalk walk(folder.string());
    EXPECT_TRUE(walk.walk(std::make_shared<const DesktopEntryIndex>(), steady_clock::now()).empty());
    EXPECT_TRUE(readProcesses(folder)->empty());
}

} // namespace

} // namespace orrinvale
