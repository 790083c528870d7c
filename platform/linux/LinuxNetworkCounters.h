// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"
#include "platform/NetworkCounters.h"
#include "platform/linux/LinkDump.h"

namespace orrinvale
{

// 64-bit byte counters of every interface, from one rtnetlink dump a reading, or from another when links came or went
// during it.
class LinuxNetworkCounters final : public NetworkCounters
{
public:
    LinuxNetworkCounters();
    LinuxNetworkCounters(const LinuxNetworkCounters&) = delete;
    LinuxNetworkCounters& operator=(const LinuxNetworkCounters&) = delete;

    std::optional<Bytes> totals() override;

private:
    LinkDump::Progress read(LinkDump& dump);

    Descriptor m_socket;
    std::uint32_t m_sequence = 0;
};

} // namespace orrinvale
