// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxNetworkCounters.h"

#include <array>

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
constexpr int mostAttempts = 3; // where links come and go without end

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

} // namespace

LinuxNetworkCounters::LinuxNetworkCounters() : m_socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE))
{
    ::setsockopt(m_socket.get(), SOL_SOCKET, SO_RCVTIMEO, &longestWait, sizeof longestWait);
}

std::optional<NetworkCounters::Bytes> LinuxNetworkCounters::totals()
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        LinkDump dump(++m_sequence);
        const auto progress = read(dump);
        if (progress != LinkDump::Progress::interrupted)
            return progress == LinkDump::Progress::done ? std::optional(dump.totals()) : std::nullopt;
    }
    return std::nullopt;
}

LinkDump::Progress LinuxNetworkCounters::read(LinkDump& dump)
{
    if (!sendRequest(m_socket.get(), m_sequence))
        return LinkDump::Progress::failed;
    alignas(nlmsghdr) std::array<char, 32768> buffer; // the kernel's own largest dump message
    for (;;) {
        const auto length = ::recv(m_socket.get(), buffer.data(), buffer.size(), 0);
        if (length <= 0)
            return LinkDump::Progress::failed;
        const auto progress = dump.take(buffer.data(), static_cast<std::size_t>(length));
        if (progress != LinkDump::Progress::more)
            return progress;
    }
}

} // namespace orrinvale
