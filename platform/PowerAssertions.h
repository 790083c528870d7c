// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace orrinvale
{

// Holds off idle system sleep; the display may still turn off. Main thread.
class PowerAssertions
{
public:
    struct Created {
        std::int32_t status; // 0: success; any other value is a negative error code
        std::uint32_t id;    // names the assertion until it is released; meaningless without success
    };

    virtual ~PowerAssertions() = default;
    // Answers within one second. `level` 255 means on.
    virtual Created create(std::string_view type, std::uint32_t level, std::string_view name) = 0;
    // Unknown identifiers are ignored. Does not wait.
    virtual void release(std::uint32_t id) = 0;
};

} // namespace orrinvale
