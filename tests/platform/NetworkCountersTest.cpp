// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxNetworkCounters.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include <arpa/inet.h>
#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

// Sends datagrams to a port of the loopback device that nobody needs to read.
void sendOverLoopback(std::size_t datagrams, std::size_t size)
{
    const auto receiver = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ASSERT_EQ(::bind(receiver, reinterpret_cast<sockaddr*>(&address), length), 0);
    ASSERT_EQ(::getsockname(receiver, reinterpret_cast<sockaddr*>(&address), &length), 0);
    const auto sender = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const std::string payload(size, 'x');
    for (std::size_t i = 0; i < datagrams; ++i)
        ::sendto(sender, payload.data(), payload.size(), 0, reinterpret_cast<sockaddr*>(&address), length);
    ::close(sender);
    ::close(receiver);
}

TEST(NetworkCounters, TrafficOverLoopbackCountsInBothDirections)
{
    LinuxNetworkCounters counters;
    const auto before = counters.totals();
    ASSERT_TRUE(before);
    sendOverLoopback(100, 10'000);
    const auto after = counters.totals();
    ASSERT_TRUE(after);
    EXPECT_GE(after->received - before->received, 1'000'000u);
    EXPECT_GE(after->sent - before->sent, 1'000'000u);
}

using Progress = LinkDump::Progress;

// Datagrams as the kernel writes them.
struct Datagram {
    void message(std::uint16_t type, std::uint16_t flags, const std::string& body, std::uint32_t sequence = 7)
    {
        nlmsghdr header{};
        header.nlmsg_len = static_cast<std::uint32_t>(sizeof header + body.size());
        header.nlmsg_type = type;
        header.nlmsg_flags = flags;
        header.nlmsg_seq = sequence;
        bytes.append(reinterpret_cast<const char*>(&header), sizeof header).append(body);
    }
    void link(std::uint64_t received, std::uint16_t flags = 0, std::uint32_t sequence = 7)
    {
        rtnl_link_stats64 statistics{};
        statistics.rx_bytes = received;
        statistics.tx_bytes = 1;
        const rtattr attribute{RTA_LENGTH(sizeof statistics), IFLA_STATS64};
        std::string body(sizeof(ifinfomsg), '\0');
        body.append(reinterpret_cast<const char*>(&attribute), sizeof attribute);
        body.append(reinterpret_cast<const char*>(&statistics), sizeof statistics);
        message(RTM_NEWLINK, flags, body, sequence);
    }
    Progress handTo(LinkDump& dump, std::optional<std::size_t> length = {}) const
    {
        const auto copy = std::make_unique<std::uint32_t[]>((bytes.size() + 3) / 4);
        std::memcpy(copy.get(), bytes.data(), bytes.size());
        return dump.take(reinterpret_cast<const char*>(copy.get()), length.value_or(bytes.size()));
    }

    std::string bytes;
};

TEST(LinkDump, SumsUpTheLinksOfAllDatagrams)
{
    LinkDump dump(7);
    Datagram first, second;
    first.link(100);
    first.link(20);
    second.link(3);
    second.link(1000, 0, 6); // of an earlier answer
    second.message(NLMSG_DONE, 0, std::string(4, '\0'));
    EXPECT_EQ(first.handTo(dump), Progress::more);
    EXPECT_EQ(second.handTo(dump), Progress::done);
    EXPECT_EQ(dump.totals().received, 123u);
    EXPECT_EQ(dump.totals().sent, 3u);
}

TEST(LinkDump, LinksThatChangeDuringItSpoilIt)
{
    for (const auto inLink : {true, false}) {
        LinkDump dump(7);
        Datagram datagram;
        datagram.link(100, inLink ? NLM_F_DUMP_INTR : 0);
        datagram.message(NLMSG_DONE, inLink ? 0 : NLM_F_DUMP_INTR, std::string(4, '\0'));
        EXPECT_EQ(datagram.handTo(dump), Progress::interrupted);
    }
    LinkDump dump(7);
    Datagram other;
    other.link(100, NLM_F_DUMP_INTR, 6);
    other.message(NLMSG_DONE, 0, std::string(4, '\0'));
    EXPECT_EQ(other.handTo(dump), Progress::done);
}

TEST(LinkDump, AnErrorEndsIt)
{
    LinkDump dump(7);
    Datagram datagram;
    datagram.message(NLMSG_ERROR, 0, std::string(20, '\0'));
    EXPECT_EQ(datagram.handTo(dump), Progress::failed);
}

TEST(LinkDump, ALastMessageWithoutItsPaddingEndsTheDatagram)
{
    LinkDump dump(7);
    Datagram datagram;
    datagram.message(NLMSG_NOOP, 0, "x");
    const auto end = datagram.bytes.size();
    datagram.bytes.resize(NLMSG_ALIGN(end));
    datagram.link(100); // what lies in the memory behind it
    EXPECT_EQ(datagram.handTo(dump, end), Progress::more);
    EXPECT_EQ(dump.totals().received, 0u);
    Datagram shorter;
    shorter.message(RTM_NEWLINK, 0, "xy"); // shorter than a link
    EXPECT_EQ(shorter.handTo(dump), Progress::more);
    EXPECT_EQ(dump.totals().received, 0u);
}

TEST(NetworkCounters, ReadsAgainAndAgainOnOneSocket)
{
    LinuxNetworkCounters counters;
    auto last = counters.totals();
    for (int i = 0; i < 1000; ++i) {
        const auto next = counters.totals();
        ASSERT_TRUE(next);
        EXPECT_GE(next->received, last->received);
        last = next;
    }
}

} // namespace

} // namespace orrinvale
