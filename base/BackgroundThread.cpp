// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/BackgroundThread.h"

#include "base/MainQueue.h"

#include <csignal>
#include <memory>
#include <system_error>
#include <thread>
#include <type_traits>

#include <pthread.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr std::size_t longestName = 15;
constexpr auto retryInterval = 1s;

struct Start {
    std::string name;
    std::function<void()> run;
};

// Some systems' function takes the thread too, others' names the one that calls it.
template <typename SetName>
void nameThisThread(SetName setName, const char* name)
{
    if constexpr (std::is_invocable_v<SetName, const char*>)
        setName(name);
    else
        setName(pthread_self(), name);
}

// The main thread alone answers signals.
void blockSignals()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

bool tryToStart(const std::shared_ptr<const Start>& start)
{
    try {
        std::thread([start] {
            blockSignals();
            nameThisThread(pthread_setname_np, start->name.c_str());
            start->run();
        }).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void startOrTryAgain(MainQueue& retries, const std::shared_ptr<const Start>& start)
{
    if (tryToStart(start))
        return;
    retries.post([&retries, start] {
        retries.after(retryInterval, [&retries, start] { startOrTryAgain(retries, start); }).detach();
    });
}

} // namespace

void startBackgroundThread(MainQueue& retries, std::string name, std::function<void()> run)
{
    name.resize(std::min(name.size(), longestName));
    startOrTryAgain(retries, std::make_shared<const Start>(Start{std::move(name), std::move(run)}));
}

} // namespace orrinvale
