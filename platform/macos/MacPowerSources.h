// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"

namespace orrinvale
{

// The first of the system's list, which is a UPS where there is no battery; a snapshot at each call.
class MacPowerSources final : public PowerSources
{
public:
    std::optional<PowerSource> first() override;
};

} // namespace orrinvale
