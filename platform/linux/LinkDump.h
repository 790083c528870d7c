// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/NetworkCounters.h"

#include <cstddef>
#include <cstdint>

namespace orrinvale
{

// Sums up the kernel's answer to one request for all network links, which comes in several datagrams.
class LinkDump
{
public:
    enum class Progress {
        more,        // of the answer is to come
        done,        // the totals stand
        interrupted, // it is at its end, and the links changed meanwhile: one may be missing or count twice
        failed,
    };

    // Messages with another sequence number are left over from an answer that was given up.
    explicit LinkDump(std::uint32_t sequence) : m_sequence(sequence) {}

    // One datagram, any bytes, aligned as nlmsghdr is.
    Progress take(const char* data, std::size_t length);
    const NetworkCounters::Bytes& totals() const { return m_totals; }

private:
    std::uint32_t m_sequence;
    bool m_isInterrupted = false;
    NetworkCounters::Bytes m_totals{};
};

} // namespace orrinvale
