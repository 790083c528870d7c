// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"

namespace orrinvale
{

class FakePowerSources final : public PowerSources
{
public:
    std::optional<PowerSource> source;
    int reads = 0;

    void setBattery(std::int64_t percentage) { source = PowerSource{"Battery Power", percentage, 100}; }
    void setMains(std::int64_t percentage) { source = PowerSource{"AC Power", percentage, 100}; }

    std::optional<PowerSource> first() override
    {
        ++reads;
        return source;
    }
};

} // namespace orrinvale
