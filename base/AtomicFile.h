// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

struct FileReading {
    enum class Result {
        whole,
        missing,
        unsuitable, // no regular file, or a larger one than was asked for
        refused // by the system, and perhaps not the next time: permissions, an error of the disk, too many open files
    };
    Result result;
    std::string bytes; // empty unless the file was read as a whole
};

// Reads a file of at most so many bytes. Never waits for a FIFO's other end.
FileReading readFile(const std::filesystem::path& path, std::uint64_t mostBytes);

// The whole file; nullopt when it cannot be read, whatever the reason.
std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::uint64_t mostBytes = UINT64_MAX);

enum class FileAccess {
    userAlone,
    asUsual // an existing file keeps its mode, a new one follows the umask
};

// Replaces the file as one step through ".<name>.tmp" beside it, so that a reader, or a crash of this process, meets
// the whole old or the whole new one. A symbolic link stays and its target is replaced, or made. False when any step
// fails, and where the target is no regular file: a device or a FIFO is left as it is, as is the old file. Never waits
// for a FIFO. A process that may meet a limit on the size of files ignores SIGXFSZ.
bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                         FileAccess access = FileAccess::userAlone);

} // namespace orrinvale
