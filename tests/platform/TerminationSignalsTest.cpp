// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/qt/TerminationSignals.h"

#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

struct TerminationSignalsTest : testing::Test {
    void listen()
    {
        termination.listen([this] { ++calls; });
    }

    TerminationSignals termination;
    int calls = 0;
};

TEST_F(TerminationSignalsTest, EachOfThemIsHandedOverInATurnOfItsOwn)
{
    listen();
    auto expected = 0;
    for (const auto number : {SIGTERM, SIGINT, SIGHUP}) {
        ::kill(::getpid(), number);
        EXPECT_EQ(calls, expected);
        EXPECT_TRUE(waitFor([&] { return calls == expected + 1; })) << number;
        ++expected;
    }
}

TEST_F(TerminationSignalsTest, OneThatCameBeforeAnyoneListenedIsNotLost)
{
    ::kill(::getpid(), SIGTERM);
    listen();
    EXPECT_TRUE(waitFor([&] { return calls == 1; }));
}

TEST_F(TerminationSignalsTest, SeveralAtOnceAreOneCall)
{
    listen();
    for (const auto number : {SIGTERM, SIGINT, SIGHUP, SIGTERM})
        ::kill(::getpid(), number);
    EXPECT_TRUE(waitFor([&] { return calls == 1; }));
    runEventsFor(50ms);
    EXPECT_EQ(calls, 1);
}

TEST_F(TerminationSignalsTest, AWriteToAPipeThatNobodyReadsIsAnErrorOnly)
{
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    ::close(ends[0]);
    EXPECT_EQ(::write(ends[1], "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);
    ::close(ends[1]);
}

TEST_F(TerminationSignalsTest, AWriteBeyondTheLimitOfAFileIsAnErrorOnly)
{
    const auto child = ::fork();
    if (child == 0) {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_FSIZE, &none);
        const auto file = ::open("/tmp", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
        ::_exit(::write(file, "x", 1) == -1 && errno == EFBIG ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(TerminationSignalsTest, AProcessThatHangsIsEndedAllTheSame)
{
    const auto child = ::fork();
    if (child == 0) {
        ::kill(::getpid(), SIGTERM);
        for (;;)
            ::pause(); // never looks at what arrived
    }
    const auto begin = std::chrono::steady_clock::now();
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) << status;
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 8s);
}

} // namespace

} // namespace orrinvale
