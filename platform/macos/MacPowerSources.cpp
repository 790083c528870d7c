// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPowerSources.h"

#include "platform/macos/CFObject.h"

#include <IOKit/ps/IOPSKeys.h>
#include <IOKit/ps/IOPowerSources.h>

namespace orrinvale
{

std::optional<PowerSource> MacPowerSources::first()
{
    const CFObject<CFTypeRef> snapshot(IOPSCopyPowerSourcesInfo());
    if (!snapshot)
        return std::nullopt;
    const CFObject<CFTypeRef> list(IOPSCopyPowerSourcesList(snapshot.get()));
    const auto sources = arrayOf(list.get());
    if (!sources || CFArrayGetCount(sources) < 1)
        return std::nullopt;
    // The description is the snapshot's and goes with it.
    const auto description =
        dictionaryOf(IOPSGetPowerSourceDescription(snapshot.get(), CFArrayGetValueAtIndex(sources, 0)));
    if (!description)
        return std::nullopt;
    return PowerSource{textOf(CFDictionaryGetValue(description, CFSTR(kIOPSPowerSourceStateKey))),
                       integerOf(CFDictionaryGetValue(description, CFSTR(kIOPSCurrentCapacityKey))),
                       integerOf(CFDictionaryGetValue(description, CFSTR(kIOPSMaxCapacityKey)))};
}

} // namespace orrinvale
