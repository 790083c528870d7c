// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orrinvale
{

// What the operating system says of one power source.
struct PowerSource {
    std::optional<std::string> state; // "AC Power" on external power; nullopt: not told
    std::optional<std::int64_t> currentCapacity;
    std::optional<std::int64_t> maximumCapacity; // in the unit of `currentCapacity`

    friend bool operator==(const PowerSource&, const PowerSource&) = default;
};

class PowerSources
{
public:
    virtual ~PowerSources() = default;
    // The first power source, from memory; nullopt without a battery or when nothing can be read. Main thread.
    virtual std::optional<PowerSource> first() = 0;
};

} // namespace orrinvale
