// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacNetworkCounters.h"

#include <memory>
#include <utility>

#include <ifaddrs.h>
#include <net/if.h>
#include <sys/socket.h>

namespace orrinvale
{

namespace
{

bool hasCounters(const ifaddrs& entry)
{
    return entry.ifa_name && entry.ifa_addr && entry.ifa_addr->sa_family == AF_LINK && entry.ifa_data;
}

} // namespace

std::optional<NetworkCounters::Bytes> MacNetworkCounters::totals()
{
    ifaddrs* first = nullptr;
    if (::getifaddrs(&first) != 0)
        return std::nullopt;
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(first, &::freeifaddrs);
    std::map<std::string, Counters> present;
    for (const auto* entry = first; entry; entry = entry->ifa_next) {
        if (!hasCounters(*entry))
            continue;
        const auto& data = *static_cast<const if_data*>(entry->ifa_data);
        const Counters now{data.ifi_ibytes, data.ifi_obytes};
        // An interface that comes, or comes back, has its first reading now.
        const auto last = m_last.try_emplace(entry->ifa_name, now).first->second;
        m_totals.received += std::uint32_t(now.received - last.received); // in 32 bits, where a wrap does not matter
        m_totals.sent += std::uint32_t(now.sent - last.sent);
        present[entry->ifa_name] = now;
    }
    m_last = std::move(present);
    return m_totals;
}

} // namespace orrinvale
