// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/AtomicFile.h"

#include "base/Descriptor.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

constexpr int mostLinks = 40; // the kernel's own limit

bool writeAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool readAll(int fd, std::string& bytes)
{
    constexpr std::size_t step = 65536;
    for (;;) {
        const auto length = bytes.size();
        bytes.resize(length + step);
        const auto count = ::read(fd, bytes.data() + length, step);
        bytes.resize(length + (count > 0 ? static_cast<std::size_t>(count) : 0));
        if (count == 0)
            return true;
        if (count < 0 && errno != EINTR)
            return false;
    }
}

// The end of the links, which need not exist: a canonical path would stop at a link whose target is missing, and the
// rename would then take the link's place. nullopt when there is no end.
std::optional<std::filesystem::path> targetOf(const std::filesystem::path& path)
{
    std::error_code error;
    auto target = path;
    for (int links = 0; std::filesystem::is_symlink(target, error); ++links) {
        const auto next = std::filesystem::read_symlink(target, error);
        if (error || links == mostLinks)
            return std::nullopt;
        target = target.parent_path() / next;
    }
    return target;
}

bool isRegular(int fd)
{
    struct stat status {
    };
    return ::fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

std::optional<std::string> readWholeFile(const std::filesystem::path& path)
{
    // O_NONBLOCK: a FIFO in the file's place must not hold up the start.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    std::string bytes;
    if (!file.isOpen() || !isRegular(file.get()) || !readAll(file.get(), bytes))
        return std::nullopt;
    return bytes;
}

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes)
{
    const auto target = targetOf(path);
    if (!target)
        return false;
    const auto temporary = target->parent_path() / ("." + target->filename().string() + ".tmp");
    Descriptor file(
        ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    if (!file.isOpen())
        return false;
    if (writeAll(file.get(), bytes) && file.close() && ::rename(temporary.c_str(), target->c_str()) == 0)
        return true;
    ::unlink(temporary.c_str());
    return false;
}

} // namespace orrinvale
