// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// /proc/stat, one reading after another, as far as the monitor's own arithmetic.
#include "fuzz/FuzzInput.h"
#include "fuzz/ScratchFolder.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/CPUMonitor.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxCPUCounters.h"
#include "text/LocalCalendar.h"

using namespace orrinvale;

namespace
{

// A machine whose counters are in that file.
struct CountedMachine : FakePlatform {
    explicit CountedMachine(const std::filesystem::path& file) : cpuCounters(file) {}

    LinuxCPUCounters cpuCounters;
    Platform platform = platformOf(*this);
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const LocalCalendar calendar("UTC", "en_US");
    constexpr int mostReadings = 8;
    FuzzInput input(data, size);
    const auto file = scratchFolder() / "stat";
    writeScratchFile(file, input.piece());
    CountedMachine machine(file);
    AppSettings settings(machine.platform, calendar);
    CPUMonitor monitor(machine.platform, settings);
    monitor.start();
    for (int reading = 0; reading < mostReadings && !input.isEmpty(); ++reading) {
        writeScratchFile(file, input.piece());
        machine.time.advance(std::chrono::seconds(5));
        const auto ticks = machine.cpuCounters.processors();
        require(!ticks || ticks->size() % 4 == 0, "a processor has four counters");
    }
    monitor.stop();
    return 0;
}
