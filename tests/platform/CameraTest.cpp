// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxCamera.h"

#include "base/ThreadSerialQueue.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace orrinvale
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace
{

struct CameraTest : testing::Test {
    CameraTest()
    {
        std::string pattern = (fs::temp_directory_path() / "orrinvale-test-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        std::ofstream(folder / "video0") << "x"; // stands for a device node, which only root could make
    }
    ~CameraTest() override { fs::remove_all(folder); }

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

    fs::path folder;
    QtMainQueue queue;
    ThreadSerialQueue background{"test"};
    std::optional<LinuxCamera> camera;
};

TEST_F(CameraTest, NobodyHoldsItAtFirst)
{
    make();
    EXPECT_FALSE(camera->isInUse());
}

TEST_F(CameraTest, AHolderFromBeforeIsKnownAtTheFirstQuestion)
{
    const Holder holder(folder / "video0");
    make();
    EXPECT_TRUE(camera->isInUse());
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

} // namespace

} // namespace orrinvale
