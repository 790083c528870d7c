// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ApplicationSupport.h"

namespace orrinvale
{

// The XDG base directories and user directories; relative values of XDG variables are ignored, as they must be.
class LinuxApplicationSupport final : public ApplicationSupport
{
public:
    std::optional<std::filesystem::path> applicationSupportDirectory() override;
    std::filesystem::path temporaryDirectory() override;
    std::optional<std::filesystem::path> downloadsDirectory() override;
    std::filesystem::path homeDirectory() override;

    std::filesystem::path configDirectory();
    // $XDG_RUNTIME_DIR; nullopt when there is none.
    std::optional<std::filesystem::path> runtimeDirectory();
};

} // namespace orrinvale
