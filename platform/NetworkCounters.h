// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace orrinvale
{

class NetworkCounters
{
public:
    struct Bytes {
        std::uint64_t received;
        std::uint64_t sent;
    };

    virtual ~NetworkCounters() = default;
    // Summed over every link-level interface, loopback and virtual ones too; nullopt when the list cannot be had.
    virtual std::optional<Bytes> totals() = 0;
};

} // namespace orrinvale
