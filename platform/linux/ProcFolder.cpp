// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/ProcFolder.h"

#include "base/Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

constexpr std::size_t longestFile = 256 * 1024;
constexpr std::string_view deletedSuffix = " (deleted)";
constexpr unsigned long kernelThreadFlag = 0x00200000; // PF_KTHREAD of linux/sched.h

std::uint64_t numberOf(std::string_view text)
{
    std::uint64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// Of a process whose first thread has ended while others go on, the state is that of the first.
bool hasEnded(std::string_view state, std::uint64_t threads)
{
    return (state == "Z" || state == "X") && threads <= 1;
}

std::vector<std::string_view> fields(std::string_view text)
{
    std::vector<std::string_view> all;
    while (!text.empty()) {
        const auto end = text.find(' ');
        all.push_back(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return all;
}

} // namespace

std::optional<std::vector<std::int32_t>> processIds(const std::string& procFolder)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(procFolder.c_str()), ::closedir);
    if (!folder)
        return std::nullopt;
    std::vector<std::int32_t> ids;
    errno = 0; // the end and a failure look alike otherwise
    while (const auto* entry = ::readdir(folder.get())) {
        const std::string_view name = entry->d_name;
        std::int32_t pid = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
        if (error == std::errc{} && end == name.data() + name.size())
            ids.push_back(pid);
    }
    return errno == 0 ? std::optional(std::move(ids)) : std::nullopt;
}

std::string processFile(const std::string& procFolder, std::int32_t pid, const char* name)
{
    const Descriptor file(::open(fmt::format("{}/{}/{}", procFolder, pid, name).c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen())
        return {};
    std::string text;
    std::array<char, 4096> buffer;
    for (ssize_t length; text.size() < longestFile && (length = ::read(file.get(), buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(length));
    return text;
}

std::optional<ProcessStat> processStat(const std::string& procFolder, std::int32_t pid)
{
    const auto text = processFile(procFolder, pid, "stat");
    // comm may hold blanks and parentheses: it ends at the last one.
    const auto open = text.find('(');
    const auto close = text.rfind(')');
    if (open == text.npos || close == text.npos || close < open)
        return std::nullopt;
    const auto rest = fields(std::string_view(text).substr(std::min(close + 2, text.size())));
    // Counted from the state, field 3.
    constexpr std::size_t state = 0, flags = 6, userTime = 11, systemTime = 12, threads = 17, start = 19;
    if (rest.size() <= start || hasEnded(rest[state], numberOf(rest[threads])))
        return std::nullopt;
    return ProcessStat{text.substr(open + 1, close - open - 1), numberOf(rest[userTime]) + numberOf(rest[systemTime]),
                       numberOf(rest[start]), (numberOf(rest[flags]) & kernelThreadFlag) != 0};
}

std::optional<std::string> executableOf(const std::string& procFolder, std::int32_t pid)
{
    std::array<char, 4096> buffer;
    const auto length = ::readlink(fmt::format("{}/{}/exe", procFolder, pid).c_str(), buffer.data(), buffer.size());
    if (length <= 0)
        return std::nullopt;
    std::string path(buffer.data(), static_cast<std::size_t>(length));
    if (path.ends_with(deletedSuffix))
        path.resize(path.size() - deletedSuffix.size());
    return path;
}

std::vector<std::string> zeroSeparated(std::string_view text)
{
    std::vector<std::string> pieces;
    while (!text.empty()) {
        const auto end = text.find('\0');
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return pieces;
}

} // namespace orrinvale
