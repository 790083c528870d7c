// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/AtomicFile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

struct AtomicFile : testing::Test {
    AtomicFile()
    {
        std::string pattern = (fs::temp_directory_path() / "orrinvale-test-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        file = folder / "log.json";
    }
    ~AtomicFile() override { fs::remove_all(folder); }

    fs::path folder;
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

} // namespace

} // namespace orrinvale
