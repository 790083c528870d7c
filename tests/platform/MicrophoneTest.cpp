// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxMicrophone.h"

#include "platform/qt/QtMainQueue.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <QProcess>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// Runs among PulseAudio and again among PipeWire.
struct MicrophoneTest : testing::Test {
    // A recording that ends with the object.
    struct Recording {
        explicit Recording(const QStringList& arguments) { process.start(QStringLiteral("parecord"), arguments); }
        ~Recording()
        {
            process.kill();
            process.waitForFinished();
        }
        QProcess process;
    };

    static Recording record(const char* source)
    {
        return Recording(
            {QStringLiteral("-d"), QString::fromLatin1(source), QStringLiteral("--raw"), QStringLiteral("/dev/null")});
    }
    bool becomes(bool inUse)
    {
        return waitFor([&] { return microphone.isInUse() == inUse; });
    }

    QtMainQueue queue;
    LinuxMicrophone microphone{queue, "/nonexistent"};
};

TEST_F(MicrophoneTest, NobodyRecordsAtFirst)
{
    EXPECT_FALSE(microphone.isInUse());
}

TEST_F(MicrophoneTest, ARecordingThatRunsIsKnownAtTheFirstQuestion)
{
    const auto recording = record("mic");
    {
        LinuxMicrophone observer(queue, "/nonexistent");
        ASSERT_TRUE(waitFor([&] { return observer.isInUse(); }));
    }
    EXPECT_TRUE(microphone.isInUse());
}

TEST_F(MicrophoneTest, RecordingFromAMicrophoneCountsUntilItEnds)
{
    EXPECT_FALSE(microphone.isInUse());
    {
        const auto recording = record("mic");
        EXPECT_TRUE(becomes(true));
    }
    EXPECT_TRUE(becomes(false));
}

TEST_F(MicrophoneTest, RecordingFromAMonitorDoesNotCount)
{
    const auto sink =
        qEnvironmentVariable("BED_SOUND") == QStringLiteral("pipewire") ? "auto_null.monitor" : "speaker.monitor";
    const auto recording = record(sink);
    runEventsFor(700ms);
    ASSERT_EQ(recording.process.state(), QProcess::Running);
    EXPECT_FALSE(microphone.isInUse());
    EXPECT_TRUE(becomes(false));
}

TEST_F(MicrophoneTest, ARemapSourceAloneDoesNotCount)
{
    ASSERT_EQ(QProcess::execute(
                  QStringLiteral("pactl"),
                  {QStringLiteral("load-module"), QStringLiteral("module-remap-source"), QStringLiteral("master=mic")}),
              0);
    runEventsFor(500ms);
    EXPECT_FALSE(microphone.isInUse());
    QProcess::execute(QStringLiteral("pactl"),
                      {QStringLiteral("unload-module"), QStringLiteral("module-remap-source")});
}

TEST_F(MicrophoneTest, AServerThatWasRestartedIsFoundAgain)
{
    const auto service = qEnvironmentVariable("BED_SOUND");
    EXPECT_FALSE(microphone.isInUse());
    ASSERT_EQ(QProcess::execute(qEnvironmentVariable("BED_TOOL"), {QStringLiteral("restart"), service}), 0);
    const auto recording = record("mic");
    EXPECT_TRUE(becomes(true));
}

} // namespace

} // namespace orrinvale
