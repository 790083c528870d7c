// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace orrinvale
{

// A folder of this process alone, for parsers that read files; it goes at exit.
const std::filesystem::path& scratchFolder();

// Replaces the file there; the folders above it are made.
void writeScratchFile(const std::filesystem::path& file, std::string_view bytes);

} // namespace orrinvale
