// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppDelegate.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ApplicationInterface.h"
#include "orrinvale/WakeEngine.h"
#include "platform/fake/FakePlatform.h"
#include "tests/bench/Bench.h"
#include "text/LocalCalendar.h"

#include <cstdlib>
#include <random>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const std::string folder = "/home/anna/Downloads";

struct NoInterface final : ApplicationInterface {
    void showStatusItem(WakeEngine&) override {}
    void showOnboarding() override {}
    bool canShowFeedback() const override { return false; }
    void showFeedback() override {}
};

// A fake machine with the whole logic on it, everything from memory.
struct Machine {
    Machine() { fake.folderWatcher.folders[folder]; }

    FakePlatform fake;
    Platform platform = fake.platform();
    LocalCalendar calendar{"UTC"};
    AppSettings settings{platform, calendar};
};

// Ends the run when the subject did not do what is measured: a fast way of doing nothing is no result.
void insist(bool condition, const char* what)
{
    if (condition)
        return;
    fmt::print(stderr, "logic_bench: {}\n", what);
    std::exit(1);
}

bench::Samples networkTick()
{
    Machine machine;
    NetworkActivityMonitor monitor(machine.platform, machine.settings);
    monitor.start();
    std::uint64_t rate = 3'000'000;
    const auto samples = bench::measure(
        2000,
        [&] {
            machine.fake.networkCounters.bytes->received += rate += 300'000; // another text each time
            machine.fake.networkCounters.bytes->sent += rate;
        },
        [&] { machine.fake.time.advance(3s); });
    insist(monitor.signals.get().size() == 2, "the network monitor saw no traffic");
    return samples;
}

bench::Samples cpuTick()
{
    Machine machine;
    constexpr std::size_t cores = 256;
    machine.fake.processStatus.text = "  PID  %CPU COMMAND\n";
    for (int pid = 100; pid < 400; ++pid)
        *machine.fake.processStatus.text += fmt::format("{:5} {:5.1f} /usr/bin/program-{}\n", pid, 99.0, pid);
    CPUMonitor monitor(machine.platform, machine.settings);
    machine.fake.cpuCounters.addCoreLoad(cores - 1, 0);
    monitor.start();
    std::int32_t busy = 50;
    const auto samples = bench::measure(
        2000,
        [&] {
            busy = busy == 50 ? 90 : 50;
            machine.fake.cpuCounters.addHostLoad(static_cast<std::uint32_t>(busy));
            for (std::size_t core = 0; core < cores; ++core)
                machine.fake.cpuCounters.addCoreLoad(core, busy);
        },
        [&] { machine.fake.time.advance(5s); });
    insist(!monitor.signals.get().empty(), "the processor monitor saw no load");
    return samples;
}

bench::Samples evaluation()
{
    Machine machine;
    WakeEngine engine(machine.platform, machine.settings, machine.calendar);
    engine.start();
    machine.fake.time.runPending();
    WakeSignals signals;
    for (int i = 0; i < 1000; ++i)
        signals.push_back({.source = SignalSource::download,
                           .detail = fmt::format("Downloading a film with a name of usual length {}.mkv.part", i),
                           .score = 5,
                           .timestamp = machine.fake.time.now(),
                           .appBundleID = std::nullopt,
                           .appName = std::nullopt});
    engine.activeSignals.set(std::move(signals));
    const auto samples = bench::measure(
        2000, [] {}, [&] { engine.evaluate(); });
    insist(engine.state.get().isAwake(), "the engine did not wake");
    return samples;
}

bench::Samples encoding()
{
    std::vector<ActivityEntry> entries;
    for (int i = 0; i < ActivityLogStore::maxStoredEntries; ++i)
        entries.push_back({UUID::random(), VirtualTime::defaultStart + i * 61s,
                           fmt::format("Downloading \"film\" {} — München.mkv.part", i),
                           PersistedStateCategory::awake});
    std::size_t size = 0;
    const auto samples = bench::measure(
        50, [] {}, [&] { size = encodeActivityLog(entries).size(); });
    insist(size > entries.size() * 100, "the log was not encoded");
    return samples;
}

// Something happens about every ten seconds: downloads, traffic, load, applications, the battery, the screen.
void change(FakePlatform& fake, std::minstd_rand& random)
{
    const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
    switch (below(7)) {
    case 0:
        fake.folderWatcher.folders[folder] = {{"film.part", fake.time.now()}};
        fake.folderWatcher.notify(folder);
        break;
    case 1:
        fake.folderWatcher.folders[folder].clear();
        fake.folderWatcher.notify(folder);
        break;
    case 2:
        fake.networkCounters.bytes->received += below(9'000'000);
        break;
    case 3:
        fake.cpuCounters.addHostLoad(below(101));
        fake.cpuCounters.addCoreLoad(below(8), static_cast<std::int32_t>(below(101)));
        break;
    case 4:
        below(2) ? fake.runningApplications.run("com.handbrake.HandBrake", "HandBrake")
                 : fake.runningApplications.list.clear();
        fake.runningApplications.announceChange();
        break;
    case 5:
        below(2) ? fake.powerSources.setBattery(10 + below(91)) : fake.powerSources.setMains(below(101));
        break;
    default:
        fake.sessionEvents.report(below(2) ? ScreenPresence::asleep : ScreenPresence::awake);
        break;
    }
}

// Saves are counted and not encoded; everything else runs.
double tenDays(unsigned seed)
{
    Machine machine;
    auto& time = machine.fake.time;
    time.countDelayedSerialWork();
    NoInterface interface;
    AppDelegate delegate(machine.platform, machine.settings, machine.calendar, interface);
    std::minstd_rand random(seed);
    int transitions = 0;
    Cancellable count;
    const auto taken = bench::microsecondsOf([&] {
        delegate.applicationDidFinishLaunching();
        count = delegate.wakeEngine().state.observe([&](const WakeState&) { ++transitions; }, Deliver::changesOnly);
        for (const auto end = time.now() + 240h; time.now() < end;) {
            change(machine.fake, random);
            time.advance(std::chrono::milliseconds(1 + random() % 20'000));
        }
        delegate.applicationWillTerminate();
    });
    insist(transitions > 10'000 && time.serialWorkCounted() > 1000, "ten days went by without events");
    return taken;
}

} // namespace

} // namespace orrinvale

int main()
{
    using namespace orrinvale;
    bench::report("network tick", networkTick());
    bench::report("CPU tick, 256 cores", cpuTick());
    bench::report("evaluate(), 1,000 signals", evaluation());
    bench::report("encode 5,000 log entries", encoding());
    bench::report("ten simulated days", {tenDays(1), tenDays(2), tenDays(3)});
}
