// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxNetworkCounters.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include <arpa/inet.h>
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
