// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinkDump.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>

namespace orrinvale
{

namespace
{

void addLink(const nlmsghdr& message, NetworkCounters::Bytes& total)
{
    const auto* body = static_cast<const ifinfomsg*>(NLMSG_DATA(&message));
    // Signed, as below: the macros step over padding that a last one need not have.
    auto left = static_cast<int>(message.nlmsg_len) - static_cast<int>(NLMSG_LENGTH(sizeof(ifinfomsg)));
    for (const rtattr* attribute = IFLA_RTA(body); RTA_OK(attribute, left); attribute = RTA_NEXT(attribute, left)) {
        if (attribute->rta_type != IFLA_STATS64)
            continue;
        rtnl_link_stats64 statistics{};
        std::memcpy(&statistics, RTA_DATA(attribute), std::min<std::size_t>(sizeof statistics, RTA_PAYLOAD(attribute)));
        total.received += statistics.rx_bytes;
        total.sent += statistics.tx_bytes;
    }
}

} // namespace

LinkDump::Progress LinkDump::take(const char* data, std::size_t length)
{
    constexpr std::size_t longest = std::numeric_limits<int>::max();
    auto left = static_cast<int>(std::min(length, longest));
    const auto* message = reinterpret_cast<const nlmsghdr*>(data);
    for (; NLMSG_OK(message, left); message = NLMSG_NEXT(message, left)) {
        if (message->nlmsg_seq != m_sequence)
            continue;
        m_isInterrupted = m_isInterrupted || (message->nlmsg_flags & NLM_F_DUMP_INTR) != 0;
        if (message->nlmsg_type == NLMSG_DONE)
            return m_isInterrupted ? Progress::interrupted : Progress::done;
        if (message->nlmsg_type == NLMSG_ERROR)
            return Progress::failed;
        if (message->nlmsg_type == RTM_NEWLINK)
            addLink(*message, m_totals);
    }
    return Progress::more;
}

} // namespace orrinvale
