// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerAssertions.h"

namespace orrinvale
{

// The system's own power assertions, which end with the process at the latest. `pmset -g assertions` shows them.
class MacPowerAssertions final : public PowerAssertions
{
public:
    Created create(std::string_view type, std::uint32_t level, std::string_view name) override;
    void release(std::uint32_t id) override;
};

// The beginning of a UTF-8 text, cut between characters.
std::string_view firstCharacters(std::string_view text, std::size_t most);

} // namespace orrinvale
