// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/PipeWireCameras.h"

#include "platform/qt/QtMainQueue.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <QProcess>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// No camera is at hand: a node of that role that somebody records from stands for one.
struct PipeWireCamerasTest : testing::Test {
    PipeWireCamerasTest() { loadSource("camera", "Camera"); }
    ~PipeWireCamerasTest() override { pactl({"unload-module", "module-null-sink"}); }

    struct Recording {
        explicit Recording(const char* source)
        {
            process.start(QStringLiteral("parecord"), {QStringLiteral("-d"), QString::fromLatin1(source),
                                                       QStringLiteral("--raw"), QStringLiteral("/dev/null")});
        }
        ~Recording()
        {
            process.kill();
            process.waitForFinished();
        }
        QProcess process;
    };

    static int pactl(const std::vector<std::string>& arguments)
    {
        QStringList list;
        for (const auto& argument : arguments)
            list << QString::fromStdString(argument);
        QProcess process;
        process.start(QStringLiteral("pactl"), list);
        process.waitForFinished();
        return process.exitCode();
    }
    static void loadSource(const std::string& name, const std::string& role)
    {
        ASSERT_EQ(pactl({"load-module", "module-null-sink", "media.class=Audio/Source/Virtual", "sink_name=" + name,
                         "sink_properties=media.role=" + role, "channel_map=mono"}),
                  0);
    }
    bool becomes(bool inUse)
    {
        return waitFor([&] { return cameras.isAnyInUse() == inUse; });
    }

    QtMainQueue queue;
    PipeWireCameras cameras{queue};
};

TEST_F(PipeWireCamerasTest, NobodyFilmsAtFirst)
{
    EXPECT_FALSE(cameras.isAnyInUse());
}

TEST_F(PipeWireCamerasTest, ACameraIsInUseWhileSomebodyFilms)
{
    EXPECT_FALSE(cameras.isAnyInUse());
    {
        const Recording recording("camera");
        EXPECT_TRUE(becomes(true));
        PipeWireCameras later(queue);
        EXPECT_TRUE(later.isAnyInUse()); // at the first question
    }
    EXPECT_TRUE(becomes(false));
}

TEST_F(PipeWireCamerasTest, ACameraThatComesLaterCountsAndOneThatGoesDoesNot)
{
    pactl({"unload-module", "module-null-sink"});
    EXPECT_FALSE(cameras.isAnyInUse());
    loadSource("camera", "Camera");
    const Recording recording("camera");
    EXPECT_TRUE(becomes(true));
    pactl({"unload-module", "module-null-sink"});
    EXPECT_TRUE(becomes(false));
}

TEST_F(PipeWireCamerasTest, OtherNodesAreNoCameras)
{
    loadSource("music", "Music");
    const Recording recording("music");
    const auto begin = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - begin < 1s) {
        EXPECT_FALSE(cameras.isAnyInUse());
        runEventsFor(100ms);
    }
    ASSERT_EQ(recording.process.state(), QProcess::Running);
}

TEST_F(PipeWireCamerasTest, AServerThatWasRestartedIsFoundAgain)
{
    EXPECT_FALSE(cameras.isAnyInUse());
    ASSERT_EQ(
        QProcess::execute(qEnvironmentVariable("BED_TOOL"), {QStringLiteral("restart"), QStringLiteral("pipewire")}),
        0);
    loadSource("camera", "Camera");
    const Recording recording("camera");
    EXPECT_TRUE(becomes(true));
}

TEST_F(PipeWireCamerasTest, WithoutAServerNobodyFilmsAndNobodyWaits)
{
    qputenv("PIPEWIRE_REMOTE", "/nonexistent/pipewire");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(cameras.isAnyInUse());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
    qunsetenv("PIPEWIRE_REMOTE");
    EXPECT_FALSE(cameras.isAnyInUse());
}

} // namespace

} // namespace orrinvale
