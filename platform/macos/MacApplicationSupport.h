// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ApplicationSupport.h"

namespace orrinvale
{

// The user's folders in the system's own places, as Qt knows them.
class MacApplicationSupport final : public ApplicationSupport
{
public:
    std::optional<std::filesystem::path> applicationSupportDirectory() override;
    std::filesystem::path temporaryDirectory() override;
    std::optional<std::filesystem::path> downloadsDirectory() override;
    std::filesystem::path homeDirectory() override;
};

} // namespace orrinvale
