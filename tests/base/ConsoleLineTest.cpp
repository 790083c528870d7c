// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ConsoleLine.h"

#include "base/Descriptor.h"
#include "base/StandardDescriptors.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// Standard output is another descriptor while it stands.
class Redirected
{
public:
    explicit Redirected(int target) : m_before(::dup(STDOUT_FILENO)) { ::dup2(target, STDOUT_FILENO); }
    ~Redirected() { ::dup2(m_before.get(), STDOUT_FILENO); }
    Redirected(const Redirected&) = delete;
    Redirected& operator=(const Redirected&) = delete;

private:
    Descriptor m_before;
};

struct Ends {
    Descriptor reading, writing;
};

Ends makePipe()
{
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

Ends makeSocketPair()
{
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

Ends makeTerminal()
{
    int controlling = -1;
    int terminal = -1;
    EXPECT_EQ(::openpty(&controlling, &terminal, nullptr, nullptr, nullptr), 0);
    return {Descriptor(controlling), Descriptor(terminal)};
}

// What can be read at once.
std::string readable(int descriptor)
{
    std::string text;
    std::array<char, 4096> buffer;
    for (pollfd waiting{descriptor, POLLIN, 0}; ::poll(&waiting, 1, 100) > 0 && (waiting.revents & POLLIN) != 0;) {
        const auto length = ::read(descriptor, buffer.data(), buffer.size());
        if (length <= 0)
            break;
        text.append(buffer.data(), static_cast<std::size_t>(length));
    }
    return text;
}

// Ends the whole test, should a line wait after all.
class Patience
{
public:
    Patience() { ::alarm(10); }
    ~Patience() { ::alarm(0); }
};

void writeManyLines()
{
    const Patience patience;
    const auto begin = std::chrono::steady_clock::now();
    for (int line = 0; line < 20'000; ++line)
        consoleLine("Test", "one of very many lines that nobody reads");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST(ConsoleLine, IsMarkedAndEndsWithALineFeed)
{
    testing::internal::CaptureStdout();
    consoleLine("SleepGuard", "failed");
    consoleLine("Other", "failed too");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "⚠️ SleepGuard: failed\n⚠️ Other: failed too\n");
}

TEST(ConsoleLine, ReachesPipesSocketsAndTerminals)
{
    for (const auto make : {makePipe, makeSocketPair, makeTerminal}) {
        const auto ends = make();
        {
            const Redirected output(ends.writing.get());
            consoleLine("Test", "text");
        }
        const auto text = readable(ends.reading.get());
        EXPECT_EQ(text.substr(0, text.find_first_of("\r\n")), "⚠️ Test: text");
    }
}

TEST(ConsoleLine, ReachesAFileBehindWhatStandsThere)
{
    const Descriptor file(::open("/tmp", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    ASSERT_TRUE(file.isOpen());
    ASSERT_EQ(::write(file.get(), "before\n", 7), 7);
    {
        const Redirected output(file.get());
        consoleLine("Test", "text");
    }
    ::lseek(file.get(), 0, SEEK_SET);
    EXPECT_EQ(readable(file.get()), "before\n⚠️ Test: text\n");
}

TEST(ConsoleLine, NeverWaitsForAPipeASocketOrATerminalThatNobodyReads)
{
    for (const auto make : {makePipe, makeSocketPair, makeTerminal}) {
        const auto ends = make();
        const Redirected output(ends.writing.get());
        writeManyLines();
    }
}

TEST(ConsoleLine, NeverWaitsForATerminalThatIsStopped)
{
    const auto ends = makeTerminal();
    ASSERT_EQ(::tcflow(ends.writing.get(), TCOOFF), 0); // what Ctrl-S does
    {
        const Redirected output(ends.writing.get());
        writeManyLines();
    }
    ::tcflow(ends.writing.get(), TCOON);
}

TEST(ConsoleLine, LeavesTheSharedDescriptorAsItWas)
{
    const auto ends = makePipe();
    {
        const Redirected output(ends.writing.get());
        consoleLine("Test", "text");
    }
    EXPECT_EQ(::fcntl(ends.writing.get(), F_GETFL) & O_NONBLOCK, 0);
}

TEST(StandardDescriptors, AreOpenedWhereTheyAreMissing)
{
    const auto child = ::fork();
    if (child == 0) {
        for (const auto number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::close(number);
        const StandardDescriptors standard;
        bool areNull = true;
        struct stat null {
        }, found{};
        ::stat("/dev/null", &null);
        for (const auto number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            areNull = areNull && ::fstat(number, &found) == 0 && found.st_rdev == null.st_rdev;
        const auto next = ::open("/dev/null", O_RDONLY);
        ::_exit(areNull && next > STDERR_FILENO ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(StandardDescriptors, ThoseThatStandAreLeftAlone)
{
    struct stat before {
    }, after{};
    ::fstat(STDOUT_FILENO, &before);
    const StandardDescriptors standard;
    ::fstat(STDOUT_FILENO, &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

} // namespace
} // namespace orrinvale
