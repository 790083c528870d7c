// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// A battery and an adapter in a folder like /sys/class/power_supply.
#include "fuzz/FuzzInput.h"
#include "fuzz/ScratchFolder.h"
#include "platform/linux/LinuxPowerSources.h"

using namespace orrinvale;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const auto folder = scratchFolder() / "power_supply";
    for (const auto* file :
         {"BAT0/capacity", "BAT0/status", "BAT0/type", "BAT0/scope", "BAT0/present", "AC/type", "AC/online"})
        writeScratchFile(folder / file, input.piece());
    const auto source = powerSourceFromSysfs(folder.string());
    if (!source)
        return 0;
    require(source->maximumCapacity > 0, "a battery has a capacity");
    require(!source->currentCapacity ||
                (*source->currentCapacity >= 0 && source->currentCapacity <= source->maximumCapacity),
            "a battery is no fuller than full");
    return 0;
}
