// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ApplicationSupport.h"

namespace orrinvale
{

class FakeApplicationSupport final : public ApplicationSupport
{
public:
    std::optional<std::filesystem::path> support = "/nonexistent/support";
    std::filesystem::path temporary = "/nonexistent/temporary";
    std::optional<std::filesystem::path> downloads = "/home/anna/Downloads";
    std::filesystem::path home = "/home/anna";

    std::optional<std::filesystem::path> applicationSupportDirectory() override { return support; }
    std::filesystem::path temporaryDirectory() override { return temporary; }
    std::optional<std::filesystem::path> downloadsDirectory() override { return downloads; }
    std::filesystem::path homeDirectory() override { return home; }
};

} // namespace orrinvale
