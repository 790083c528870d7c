// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/BackgroundThread.h"

#include "base/ThreadSerialQueue.h"
#include "platform/fake/VirtualTime.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <future>
#include <string>
#include <thread>

#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// While it stands, this process gets no memory for another thread's stack.
class NoMoreThreads
{
public:
    NoMoreThreads()
    {
        ::getrlimit(RLIMIT_AS, &m_before);
        std::ifstream statm("/proc/self/statm");
        rlim_t pages = 0;
        statm >> pages;
        auto limit = m_before;
        limit.rlim_cur = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + room;
        ::setrlimit(RLIMIT_AS, &limit);
    }
    ~NoMoreThreads() { ::setrlimit(RLIMIT_AS, &m_before); }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

private:
    static constexpr rlim_t room = 1024 * 1024; // for the test itself; a stack takes eight times that
    rlimit m_before{};
};

// In a process of its own, which has no stacks of earlier threads to use again. Ends with 0 when `work` says yes.
void inFreshProcess(const std::function<bool()>& work)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(::_exit(work() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(BackgroundThread, RunsAwayFromTheCallerUnderItsNameAndAnswersNoSignals)
{
    VirtualTime time;
    struct Seen {
        std::thread::id id;
        std::string name;
        bool blocksTermination;
    };
    std::promise<Seen> seen;
    startBackgroundThread(time, "a name that is too long", [&] {
        std::string name(16, '\0');
        pthread_getname_np(pthread_self(), name.data(), name.size());
        sigset_t blocked;
        pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
        seen.set_value({std::this_thread::get_id(), name.c_str(), sigismember(&blocked, SIGTERM) == 1});
    });
    const auto result = seen.get_future().get();
    EXPECT_TRUE(result.id != std::this_thread::get_id());
    EXPECT_EQ(result.name, "a name that is ");
    EXPECT_TRUE(result.blocksTermination);
}

TEST(BackgroundThreadDeathTest, AThreadThatCannotBeMadeIsTriedAgainEachSecond)
{
    inFreshProcess([] {
        VirtualTime time;
        auto runs = std::make_shared<std::promise<void>>();
        auto ran = runs->get_future();
        {
            const NoMoreThreads limit;
            startBackgroundThread(time, "test", [runs] { runs->set_value(); });
            time.advance(5s);
            if (ran.wait_for(100ms) == std::future_status::ready)
                return false; // there was room for it: the test shows nothing
        }
        time.advance(1s);
        return ran.wait_for(5s) == std::future_status::ready;
    });
}

TEST(BackgroundThreadDeathTest, TheWorkOfAQueueWaitsForItsThread)
{
    inFreshProcess([] {
        VirtualTime time;
        ThreadSerialQueue queue(time, "com.orrinvale.test");
        auto order = std::make_shared<std::promise<int>>();
        auto last = order->get_future();
        auto count = std::make_shared<int>(0);
        {
            const NoMoreThreads limit;
            queue.post([count] { ++*count; });
            queue.post([count, order] { order->set_value(++*count); });
            time.advance(3s);
            if (last.wait_for(100ms) == std::future_status::ready)
                return false;
        }
        time.advance(1s);
        return last.wait_for(5s) == std::future_status::ready && last.get() == 2;
    });
}

} // namespace
} // namespace orrinvale
