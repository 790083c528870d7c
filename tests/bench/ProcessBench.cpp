// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ThreadSerialQueue.h"
#include "orrinvale/ProcessDetector.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/bench/Bench.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include <csignal>
#include <cstdlib>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr int sleeperCount = 3000;
constexpr int rounds = 50;
constexpr auto youth = 31s; // a process is looked at again while it has been known for less than 30 s

// Processes that sleep, and end with this object or with this process.
class Sleepers
{
public:
    Sleepers()
    {
        for (int i = 0; i < sleeperCount; ++i) {
            const auto pid = ::fork();
            if (pid == 0) {
                ::prctl(PR_SET_PDEATHSIG, SIGKILL);
                for (;;)
                    ::pause();
            }
            if (pid < 0) {
                std::perror("process_bench: fork");
                std::exit(1);
            }
            m_pids.push_back(pid);
        }
    }
    ~Sleepers()
    {
        for (const auto pid : m_pids)
            ::kill(pid, SIGKILL);
        for (const auto pid : m_pids)
            ::waitpid(pid, nullptr, 0);
    }

private:
    std::vector<pid_t> m_pids;
};

// Made up but for its queues and its process table.
struct Machine : FakePlatform {
    QtMainQueue mainQueue;
    ThreadSerialQueue background{mainQueue, "background"};
    LinuxRunningApplications runningApplications{mainQueue, background, background};
};

// The detector on the machine.
struct Subject {
    Machine machine;
    Platform platform = platformOf(machine);
    ProcessDetector detector{platform};

    // What the detector's timer does every ten seconds, up to the moment when its result has been taken.
    void evaluateOnce()
    {
        QEventLoop loop;
        machine.runningApplications.refresh();
        detector.appsChanged();
        machine.background.post([&] { machine.mainQueue.post([&] { loop.quit(); }); }); // behind the walk
        loop.exec();
    }
};

} // namespace

} // namespace orrinvale

int main(int argc, char** argv)
{
    using namespace orrinvale;
    const Sleepers sleepers;
    QCoreApplication application(argc, argv);
    Subject subject;
    subject.evaluateOnce();
    QThread::sleep(static_cast<unsigned long>(youth.count()));
    subject.evaluateOnce();
    bench::Samples mainThread, total;
    for (int round = 0; round < rounds; ++round) {
        const auto mainBefore = bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID);
        const auto totalBefore = bench::processorMicroseconds(CLOCK_PROCESS_CPUTIME_ID);
        subject.evaluateOnce();
        mainThread.push_back(bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID) - mainBefore);
        total.push_back(bench::processorMicroseconds(CLOCK_PROCESS_CPUTIME_ID) - totalBefore);
    }
    bench::report("3,000 processes, main thread", mainThread);
    bench::report("3,000 processes, total CPU", total);
}
