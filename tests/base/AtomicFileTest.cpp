// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/AtomicFile.h"

#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <csignal>
#include <random>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

struct AtomicFile : testing::Test {
    AtomicFile() { file = folder / "log.json"; }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
    fs::path file;
};

TEST_F(AtomicFile, WritesAndReadsBack)
{
    EXPECT_TRUE(writeFileAtomically(file, "one"));
    EXPECT_TRUE(writeFileAtomically(file, "two"));
    EXPECT_EQ(readWholeFile(file), "two");
}

TEST_F(AtomicFile, IsReadableByTheUserAlone)
{
    ASSERT_TRUE(writeFileAtomically(file, "one"));
    struct stat status {
    };
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(AtomicFile, LeavesNothingElseBehind)
{
    ASSERT_TRUE(writeFileAtomically(file, "one"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST_F(AtomicFile, MissingFolderFailsQuietly)
{
    EXPECT_FALSE(writeFileAtomically(folder / "missing" / "log.json", "one"));
    EXPECT_FALSE(fs::exists(folder / "missing"));
}

TEST_F(AtomicFile, SymbolicLinkStaysAndItsTargetIsReplaced)
{
    const auto target = folder / "target.json";
    ASSERT_TRUE(writeFileAtomically(target, "old"));
    fs::create_symlink("target.json", file);
    ASSERT_TRUE(writeFileAtomically(file, "new"));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(readWholeFile(target), "new");
}

TEST_F(AtomicFile, LinksWithoutATargetStayAndTheTargetIsMade)
{
    fs::create_directories(folder / "links");
    fs::create_directories(folder / "elsewhere");
    fs::create_symlink("../elsewhere/log.json", folder / "links" / "relative");
    fs::create_symlink(folder / "links" / "relative", file);
    ASSERT_TRUE(writeFileAtomically(file, "new"));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_TRUE(fs::is_symlink(folder / "links" / "relative"));
    EXPECT_EQ(readWholeFile(folder / "elsewhere" / "log.json"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "elsewhere"), {}), 1);
}

TEST_F(AtomicFile, LinkIntoAMissingFolderFailsQuietlyAndStays)
{
    fs::create_symlink("missing/log.json", file);
    EXPECT_FALSE(writeFileAtomically(file, "new"));
    EXPECT_EQ(fs::read_symlink(file), "missing/log.json");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST_F(AtomicFile, LoopOfLinksFailsQuietlyAndStays)
{
    fs::create_symlink("other.json", file);
    fs::create_symlink("log.json", folder / "other.json");
    EXPECT_FALSE(writeFileAtomically(file, "new"));
    EXPECT_EQ(fs::read_symlink(file), "other.json");
    EXPECT_EQ(fs::read_symlink(folder / "other.json"), "log.json");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
}

TEST_F(AtomicFile, FolderOrFifoInTheFilesPlaceIsUnreadable)
{
    fs::create_directory(folder / "folder");
    EXPECT_FALSE(readWholeFile(folder / "folder"));
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    EXPECT_FALSE(readWholeFile(folder / "fifo"));
    EXPECT_FALSE(readWholeFile(folder / "missing"));
}

TEST_F(AtomicFile, ReaderAfterAKilledWriterFindsAWholeFile)
{
    const std::string first(100'000, 'a');
    const std::string second(100'000, 'b');
    ASSERT_TRUE(writeFileAtomically(file, first));
    std::minstd_rand random(7);
    for (int round = 0; round < 200; ++round) {
        const auto child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) {
                writeFileAtomically(file, second);
                writeFileAtomically(file, first);
            }
        }
        ::usleep(static_cast<useconds_t>(random() % 3000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const auto found = readWholeFile(file);
        ASSERT_TRUE(found == first || found == second) << "round " << round;
    }
}

mode_t modeOf(const fs::path& path)
{
    struct stat status {
    };
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 0777;
}

// In a process of its own, whose limits are its own too.
void inAnotherProcess(const std::function<bool()>& work)
{
    const auto child = ::fork();
    if (child == 0)
        ::_exit(work() ? 0 : 1);
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(AtomicFile, AFileThatTheUserChoseKeepsItsMode)
{
    for (const mode_t mode : {0644, 0660, 0640, 0600}) {
        std::ofstream(file) << "old";
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        ASSERT_TRUE(writeFileAtomically(file, "new", FileAccess::asUsual));
        EXPECT_EQ(modeOf(file), mode);
        EXPECT_EQ(readWholeFile(file), "new");
    }
}

TEST_F(AtomicFile, ANewFileThatTheUserChoseFollowsTheUmask)
{
    for (const mode_t mask : {0022, 0027, 0077}) {
        fs::remove(file);
        const auto before = ::umask(mask);
        ASSERT_TRUE(writeFileAtomically(file, "new", FileAccess::asUsual));
        ::umask(before);
        EXPECT_EQ(modeOf(file), 0666 & ~mask);
    }
}

TEST_F(AtomicFile, AFifoOrADeviceBehindALinkStays)
{
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    for (const auto& target : {folder / "fifo", fs::path("/dev/null")}) {
        fs::remove(file);
        fs::create_symlink(target, file);
        const auto type = fs::status(target).type();
        EXPECT_FALSE(writeFileAtomically(file, "new"));
        EXPECT_EQ(fs::status(target).type(), type);
        EXPECT_FALSE(fs::exists(target.parent_path() / ("." + target.filename().string() + ".tmp")));
    }
}

TEST_F(AtomicFile, WhatLiesInTheTemporaryFilesPlaceHoldsNothingUp)
{
    const auto begun = folder / ".log.json.tmp";
    const auto elsewhere = folder / "elsewhere";
    std::ofstream(elsewhere) << "kept";
    const std::vector<std::function<void()>> obstacles{[&] { ::mkfifo(begun.c_str(), 0600); },
                                                       [&] { fs::create_symlink(elsewhere, begun); },
                                                       [&] { std::ofstream(begun) << std::string(1'000'000, 'x'); }};
    for (const auto& place : obstacles) {
        place();
        EXPECT_TRUE(writeFileAtomically(file, "new"));
        EXPECT_EQ(readWholeFile(file), "new");
        EXPECT_FALSE(fs::exists(fs::symlink_status(begun)));
    }
    EXPECT_EQ(readWholeFile(elsewhere), "kept");
}

TEST_F(AtomicFile, ALimitOnTheSizeOfFilesIsAFailureAndTheOldFileStays)
{
    ASSERT_TRUE(writeFileAtomically(file, "old"));
    inAnotherProcess([this] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_FSIZE, &none);
        return !writeFileAtomically(file, "new");
    });
    EXPECT_EQ(readWholeFile(file), "old");
    EXPECT_FALSE(fs::exists(folder / ".log.json.tmp"));
}

TEST_F(AtomicFile, AFileLargerThanWasAskedForIsUnsuitableWithoutBeingRead)
{
    std::ofstream(file) << "12345";
    EXPECT_EQ(readFile(file, 5).bytes, "12345");
    EXPECT_EQ(readFile(file, 4).result, FileReading::Result::unsuitable);
    fs::resize_file(file, std::uintmax_t(3) << 30);
    const auto begin = std::chrono::steady_clock::now();
    const auto reading = readFile(file, 1 << 20);
    EXPECT_EQ(reading.result, FileReading::Result::unsuitable);
    EXPECT_TRUE(reading.bytes.empty());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
}

TEST_F(AtomicFile, AFileThatSaysItIsEmptyIsLimitedToo)
{
    EXPECT_EQ(readFile("/proc/self/status", 100).result, FileReading::Result::unsuitable);
    EXPECT_EQ(readFile("/proc/self/status", 1 << 20).result, FileReading::Result::whole);
}

TEST_F(AtomicFile, WhatIsMissingUnsuitableOrRefusedIsToldApart)
{
    using Result = FileReading::Result;
    EXPECT_EQ(readFile(file, 10).result, Result::missing);
    std::ofstream(folder / "plain") << "x";
    EXPECT_EQ(readFile(folder / "plain" / "below", 10).result, Result::missing);
    EXPECT_EQ(readFile(folder, 10).result, Result::unsuitable);
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    EXPECT_EQ(readFile(folder / "fifo", 10).result, Result::unsuitable);
    fs::create_symlink("log.json", file);
    EXPECT_EQ(readFile(file, 10).result, Result::unsuitable);
    EXPECT_EQ(readFile("/proc/self/mem", 10).result, Result::refused); // EIO at its beginning
}

TEST_F(AtomicFile, WithoutADescriptorLeftReadingIsRefused)
{
    std::ofstream(file) << "x";
    inAnotherProcess([this] {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_NOFILE, &none);
        return readFile(file, 10).result == FileReading::Result::refused;
    });
}

} // namespace

} // namespace orrinvale
