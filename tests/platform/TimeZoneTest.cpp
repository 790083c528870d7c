// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxTimeZone.h"

#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace
{

struct TimeZoneTest : testing::Test {
    TimeZoneTest()
    {
        fs::create_directory(folder / "etc");
        for (const auto* name : {"Berlin", "Tokyo"})
            std::ofstream(folder / name) << "the rules of " << name;
        file = folder / "etc/localtime";
    }
    void watch()
    {
        zone.emplace(queue, file);
        token = zone->observeChanges([this] { ++changes; });
    }
    // What timedated does.
    void link(const std::string& name)
    {
        fs::remove(folder / "etc/new");
        fs::create_symlink(folder / name, folder / "etc/new");
        fs::rename(folder / "etc/new", file);
    }
    bool changesBecome(int count)
    {
        return waitFor([&] { return changes == count; });
    }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path;
    fs::path file;
    QtMainQueue queue;
    std::optional<LinuxTimeZone> zone;
    int changes = 0;
    Cancellable token;
};

TEST_F(TimeZoneTest, ALinkThatIsReplacedIsAnnouncedEachTime)
{
    link("Berlin");
    watch();
    for (int count = 1; count <= 3; ++count) {
        link(count % 2 == 1 ? "Tokyo" : "Berlin");
        EXPECT_TRUE(changesBecome(count));
    }
}

TEST_F(TimeZoneTest, ALinkThatIsTakenAwayAndMadeAgainIsOneChange)
{
    link("Berlin");
    watch();
    fs::remove(file);
    fs::create_symlink(folder / "Tokyo", file);
    EXPECT_TRUE(changesBecome(1));
    runEventsFor(500ms);
    EXPECT_EQ(changes, 1);
}

TEST_F(TimeZoneTest, AFileThatIsWrittenOverIsAnnouncedEachTime)
{
    std::ofstream(file) << "the rules of Berlin";
    watch();
    std::ofstream(file) << "the rules of Tokyo";
    EXPECT_TRUE(changesBecome(1));
    std::ofstream(file) << "the rules of Berlin again";
    EXPECT_TRUE(changesBecome(2));
}

TEST_F(TimeZoneTest, OtherFilesOfTheFolderAreNotAnnounced)
{
    link("Berlin");
    watch();
    std::ofstream(folder / "etc/passwd") << "x";
    fs::remove(folder / "etc/passwd");
    runEventsFor(500ms);
    EXPECT_EQ(changes, 0);
}

TEST_F(TimeZoneTest, AMissingFileIsAnnouncedWhenItComes)
{
    watch();
    link("Tokyo");
    EXPECT_TRUE(changesBecome(1));
}

} // namespace

} // namespace orrinvale
