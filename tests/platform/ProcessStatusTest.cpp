// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessStatus.h"

#include "base/ThreadSerialQueue.h"
#include "platform/linux/ProcFolder.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace
{

TEST(ProcessStatus, ASpinningProcessIsTheFirstRowWithAboutOneCore)
{
    const auto child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (;;) {
        }
    }
    QtMainQueue queue;
    ThreadSerialQueue background(queue, "test");
    LinuxProcessStatus status(queue, background);
    EXPECT_EQ(status.table(), std::nullopt);
    status.prepare();
    status.prepare(); // one is under way
    EXPECT_TRUE(waitFor([&] { return status.table().has_value(); }));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const auto table = status.table().value_or("");
    EXPECT_TRUE(table.starts_with("  PID  %CPU COMMAND\n"));
    const auto row = table.find(std::to_string(child) + " ");
    ASSERT_NE(row, table.npos) << table;
    const auto percent = std::atof(table.c_str() + row + std::to_string(child).size());
    EXPECT_GT(percent, 1.0) << table; // the machine may be busy with much else
    EXPECT_LT(percent, 120.0) << table;
    EXPECT_NE(table.find("ProcessStatusTest\n"), table.npos) << table;
}

struct FakeProc : testing::Test {
    void process(int pid, const std::string& comm, int ticks, const std::string& flags = "0", int start = 500)
    {
        fs::create_directories(folder / std::to_string(pid));
        std::ofstream(folder / std::to_string(pid) / "stat")
            << pid << " (" << comm << ") R 1 1 1 0 -1 " << flags << " 0 0 0 0 " << ticks << " 0 0 0 20 0 1 0 " << start
            << " 0 0\n";
    }
    ProcessReading read() { return readProcesses(folder).value(); }
    std::string table(const ProcessReading& before) { return processTable(folder, before, read(), 1s); }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
};

TEST_F(FakeProc, WhatIsForgottenDoesNotComeBack)
{
    process(10, "a", 1000);
    QtMainQueue queue;
    ThreadSerialQueue background(queue, "test");
    LinuxProcessStatus status(queue, background, folder.string());
    status.prepare();
    EXPECT_TRUE(waitFor([&] { return status.table().has_value(); }));
    status.prepare();
    status.forget(); // while it measures
    EXPECT_EQ(status.table(), std::nullopt);
    runEventsFor(2s);
    EXPECT_EQ(status.table(), std::nullopt);
    status.prepare();
    EXPECT_TRUE(waitFor([&] { return status.table().has_value(); }));
}

TEST_F(FakeProc, AFolderThatCannotBeReadIsNoReading)
{
    EXPECT_TRUE(readProcesses(folder));
    EXPECT_EQ(readProcesses(folder / "missing"), std::nullopt);
}

TEST_F(FakeProc, BusiestFirstOverTheInterval)
{
    process(10, "a", 1000);
    process(11, "b", 0);
    const auto before = read();
    process(10, "a", 1010);
    process(11, "b", 55);
    EXPECT_EQ(table(before), "  PID  %CPU COMMAND\n   11  55.0 b\n   10  10.0 a\n");
}

TEST_F(FakeProc, KernelThreadsAndTheSessionsMachineryAreLeftOut)
{
    const auto before = read();
    process(10, "kworker/0:1", 90, "2129984");
    process(11, "Xorg", 80);
    process(12, "worker", 70);
    EXPECT_EQ(table(before), "  PID  %CPU COMMAND\n   12  70.0 worker\n");
}

TEST_F(FakeProc, AReusedIdIsAnotherProcess)
{
    process(10, "old", 5000, "0", 500);
    const auto before = read();
    process(10, "new", 20, "0", 900);
    EXPECT_EQ(table(before), "  PID  %CPU COMMAND\n   10  20.0 new\n");
}

TEST_F(FakeProc, HostileNamesSpoilNothing)
{
    const auto before = read();
    process(10, "a) R (\n\xFF", 30);
    process(11, "plain", 20);
    EXPECT_EQ(table(before), "  PID  %CPU COMMAND\n   10  30.0 a) R (?\xEF\xBF\xBD\n   11  20.0 plain\n");
}

TEST_F(FakeProc, TheExecutablesPathIsTheCommandWithoutDeleted)
{
    const auto before = read();
    process(10, "ffmpeg", 30);
    fs::create_symlink("/opt/My Tools/ffmpeg (deleted)", folder / "10" / "exe");
    EXPECT_EQ(table(before), "  PID  %CPU COMMAND\n   10  30.0 /opt/My Tools/ffmpeg\n");
}

} // namespace

} // namespace orrinvale
