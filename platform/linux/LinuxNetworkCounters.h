// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/NetworkCounters.h"

namespace orrinvale
{

// 64-bit byte counters of every interface, from one rtnetlink dump a reading.
class LinuxNetworkCounters final : public NetworkCounters
{
public:
    LinuxNetworkCounters();
    ~LinuxNetworkCounters() override;
    LinuxNetworkCounters(const LinuxNetworkCounters&) = delete;
    LinuxNetworkCounters& operator=(const LinuxNetworkCounters&) = delete;

    std::optional<Bytes> totals() override;

private:
    int m_socket;
    std::uint32_t m_sequence = 0;
};

} // namespace orrinvale
