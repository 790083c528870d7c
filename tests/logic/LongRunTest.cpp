// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WakeEngine.h"

#include "tests/logic/LogicFixture.h"

#include <cstdlib>
#include <random>
#include <set>

namespace orrinvale
{

namespace
{

const std::string folder = "/home/anna/Downloads";

// A machine on which everything changes at random, from a seed; after every step the engine's promises are looked at.
class RandomMachine : public LogicFixture
{
public:
    explicit RandomMachine(unsigned seed) : m_random(seed)
    {
        time.countDelayedSerialWork();
        fake.applicationSupport.support = m_support.path;
        fake.folderWatcher.folders[folder];
        fake.cpuCounters.addCoreLoad(0, 0);
        m_engine.emplace(platform(), settings(), calendar);
        m_observer = m_engine->state.observe([this](const WakeState& next) { m_statesSeen.push_back(next); },
                                             Deliver::changesOnly);
        m_engine->start();
    }

    void run(std::chrono::seconds duration)
    {
        const auto end = time.now() + duration;
        while (time.now() < end && !testing::Test::HasFailure()) {
            act();
            time.advance(std::chrono::milliseconds(1 + below(20'000)));
            check();
        }
    }

    void finish()
    {
        time.advance(300ms); // the last save falls due
        time.runNewestCountedWork();
        const auto stored = m_engine->logStore().load();
        ASSERT_EQ(stored.size(), m_engine->activityLog.get().size());
        m_engine->stop();
        EXPECT_EQ(time.timerCount(), 0u);
        EXPECT_TRUE(fake.powerAssertions.held.empty());
    }

    std::size_t sourcesSeen() const { return m_sourcesSeen.size(); }

    void TestBody() override {}

private:
    std::uint32_t below(std::uint32_t bound) { return static_cast<std::uint32_t>(m_random() % bound); }

    void act()
    {
        switch (below(12)) {
        case 0:
            fake.folderWatcher.folders[folder] = {{"film.part", time.now()}};
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
            fake.cpuCounters.addCoreLoad(0, static_cast<std::int32_t>(below(101)));
            break;
        case 4:
            fake.runningApplications.run("com.handbrake.HandBrake", "HandBrake");
            break;
        case 5:
            fake.runningApplications.list.clear();
            fake.runningApplications.announceChange();
            break;
        case 6:
            chooseMode(allWakeModes[below(3)]);
            break;
        case 7:
            below(2) ? fake.powerSources.setBattery(below(101)) : fake.powerSources.setMains(below(101));
            break;
        case 8:
            settings().onlyWhenPluggedIn.set(below(4) == 0);
            break;
        case 9:
            settings().pauseOnLowBattery.set(below(2) == 0);
            break;
        case 10:
            settings().cpuSignalEnabled.set(below(2) == 0);
            settings().networkSignalEnabled.set(below(2) == 0);
            break;
        default:
            fake.sessionEvents.report(below(2) ? ScreenPresence::asleep : ScreenPresence::awake);
            break;
        }
    }

    void chooseMode(WakeMode mode)
    {
        m_engine->mode.set(mode);
        settings().wakeMode.set(mode);
        m_engine->evaluate();
    }

    void check()
    {
        EXPECT_EQ(fake.powerAssertions.held.size(), m_engine->state.get().isIdle() ? 0u : 1u);
        EXPECT_LE(m_engine->activityLog.get().size(), WakeEngine::longestLog);
        for (const auto& next : m_statesSeen) {
            EXPECT_NE(next, m_lastState);
            const auto isTick =
                next.persistedCategory() == PersistedStateCategory::cooldown && next.secondsRemaining() < 30;
            if (!isTick)
                ++m_transitions;
            m_lastState = next;
        }
        m_statesSeen.clear();
        EXPECT_EQ(std::min(m_transitions, WakeEngine::longestLog), m_engine->activityLog.get().size());
        for (const auto& signal : m_engine->activeSignals.get())
            m_sourcesSeen.insert(signal.source);
    }

    std::minstd_rand m_random;
    TemporaryFolder m_support;
    std::optional<WakeEngine> m_engine;
    Cancellable m_observer;
    std::vector<WakeState> m_statesSeen;
    WakeState m_lastState;
    std::size_t m_transitions = 0;
    std::set<SignalSource> m_sourcesSeen;
};

unsigned seeds(unsigned all)
{
    // A build with sanitizers is an order of magnitude slower.
    return std::getenv("ORRINVALE_FEWER_SEEDS") ? all / 10 : all;
}

TEST(LongRun, TwoSimulatedHoursFromEachSeedKeepEveryPromise)
{
    for (unsigned seed = 1; seed <= seeds(1000) && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomMachine machine(seed);
        machine.run(2h);
        machine.finish();
    }
}

TEST(LongRun, TenSimulatedDaysKeepEveryPromise)
{
    RandomMachine machine(4711);
    machine.run(240h);
    EXPECT_EQ(machine.sourcesSeen(), 4u); // downloads, network, processes, load: none slept through it
    machine.finish();
}

} // namespace

} // namespace orrinvale
