// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/TerminationSignals.h"

#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
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

} // namespace

} // namespace orrinvale
