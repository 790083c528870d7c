// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/NetworkCounters.h"

namespace orrinvale
{

class FakeNetworkCounters final : public NetworkCounters
{
public:
    std::optional<Bytes> bytes = Bytes{0, 0};
    int reads = 0;

    std::optional<Bytes> totals() override
    {
        ++reads;
        return bytes;
    }
};

} // namespace orrinvale
