// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

// The whole file; nullopt when it cannot be read (missing, no permission, a folder).
std::optional<std::string> readWholeFile(const std::filesystem::path& path);

// Replaces the file as one step through ".<name>.tmp" beside it, so that a reader, or a crash of this process, meets
// the whole old or the whole new one. A symbolic link stays and its target is replaced, or made. Readable by the user
// alone. False when any step fails; the old file is then untouched.
bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes);

} // namespace orrinvale
