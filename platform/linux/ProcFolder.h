// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrinvale
{

// What /proc tells of processes. Thread-safe; a process may end at any moment, which is nullopt or empty.

// nullopt when they cannot be told, or not all of them.
std::optional<std::vector<std::int32_t>> processIds(const std::string& procFolder);

struct ProcessStat {
    std::string comm;        // at most 15 bytes, any of them
    std::uint64_t ticks;     // user and system time, in clock ticks
    std::uint64_t startTime; // since boot, in clock ticks: with the pid it names a process for good
    bool isKernelThread;
};
// One that has ended is none, though its parent has not yet asked for its status.
std::optional<ProcessStat> processStat(const std::string& procFolder, std::int32_t pid);

// The path of the program, without " (deleted)"; nullopt where it may not be read.
std::optional<std::string> executableOf(const std::string& procFolder, std::int32_t pid);

// A small file of the process, whole; empty when it cannot be read.
std::string processFile(const std::string& procFolder, std::int32_t pid, const char* name);

// The pieces of a text whose pieces end with zero bytes, such as cmdline.
std::vector<std::string> zeroSeparated(std::string_view text);

} // namespace orrinvale
