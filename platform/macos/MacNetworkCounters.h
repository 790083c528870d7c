// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/NetworkCounters.h"

#include <map>
#include <string>

namespace orrinvale
{

// The interfaces' byte counters, which have 32 bits and wrap every few seconds of a fast link. What is handed out is
// the sum of their growth since the first reading and never falls. Main thread.
class MacNetworkCounters final : public NetworkCounters
{
public:
    std::optional<Bytes> totals() override;

private:
    struct Counters {
        std::uint32_t received;
        std::uint32_t sent;
    };
    Bytes m_totals{0, 0};
    std::map<std::string, Counters> m_last; // by the interface's name
};

} // namespace orrinvale
