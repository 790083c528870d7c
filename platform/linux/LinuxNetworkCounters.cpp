// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxNetworkCounters.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

// The kernel answers a dump while it handles the request; the bound is for a machine in trouble.
constexpr timeval longestWait{0, 100'000};

struct Request {
    nlmsghdr header;
    ifinfomsg body;
};

bool sendRequest(int socket, std::uint32_t sequence)
{
    Request request{};
    request.header.nlmsg_len = sizeof request;
    request.header.nlmsg_type = RTM_GETLINK;
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.header.nlmsg_seq = sequence;
    request.body.ifi_family = AF_UNSPEC;
    return ::send(socket, &request, sizeof request, 0) == static_cast<ssize_t>(sizeof request);
}

void addLink(const nlmsghdr& message, NetworkCounters::Bytes& total)
{
    const auto* body = static_cast<const ifinfomsg*>(NLMSG_DATA(&message));
    auto left = static_cast<int>(message.nlmsg_len - NLMSG_LENGTH(sizeof(ifinfomsg)));
    for (const rtattr* attribute = IFLA_RTA(body); RTA_OK(attribute, left); attribute = RTA_NEXT(attribute, left)) {
        if (attribute->rta_type != IFLA_STATS64)
            continue;
        rtnl_link_stats64 statistics{};
        std::memcpy(&statistics, RTA_DATA(attribute), std::min<std::size_t>(sizeof statistics, RTA_PAYLOAD(attribute)));
        total.received += statistics.rx_bytes;
        total.sent += statistics.tx_bytes;
    }
}

enum class Reading { more, done, failed };

Reading addMessages(const char* data, std::size_t length, std::uint32_t sequence, NetworkCounters::Bytes& total)
{
    const auto* message = reinterpret_cast<const nlmsghdr*>(data);
    for (; NLMSG_OK(message, length); message = NLMSG_NEXT(message, length)) {
        if (message->nlmsg_seq != sequence)
            continue; // left over from a reading that was given up
        if (message->nlmsg_type == NLMSG_DONE)
            return Reading::done;
        if (message->nlmsg_type == NLMSG_ERROR)
            return Reading::failed;
        if (message->nlmsg_type == RTM_NEWLINK)
            addLink(*message, total);
    }
    return Reading::more;
}

} // namespace

LinuxNetworkCounters::LinuxNetworkCounters() : m_socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE))
{
    ::setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &longestWait, sizeof longestWait);
}

LinuxNetworkCounters::~LinuxNetworkCounters()
{
    if (m_socket >= 0)
        ::close(m_socket);
}

std::optional<NetworkCounters::Bytes> LinuxNetworkCounters::totals()
{
    if (!sendRequest(m_socket, ++m_sequence))
        return std::nullopt;
    Bytes total{};
    alignas(nlmsghdr) std::array<char, 32768> buffer; // the kernel's own largest dump message
    for (;;) {
        const auto length = ::recv(m_socket, buffer.data(), buffer.size(), 0);
        if (length <= 0)
            return std::nullopt;
        const auto reading = addMessages(buffer.data(), static_cast<std::size_t>(length), m_sequence, total);
        if (reading != Reading::more)
            return reading == Reading::done ? std::optional(total) : std::nullopt;
    }
}

} // namespace orrinvale
