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

using Result = FileReading::Result;

constexpr int mostLinks = 40; // the kernel's own limit
constexpr mode_t privateMode = S_IRUSR | S_IWUSR;
constexpr mode_t usualMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH; // what the umask leaves of it
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

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

// Whatever size the file says it has: it may be growing, and files of the system say none.
Result readAll(int fd, std::string& bytes, std::uint64_t mostBytes)
{
    constexpr std::size_t step = 65536;
    while (bytes.size() <= mostBytes) {
        const auto length = bytes.size();
        bytes.resize(length + step);
        const auto count = ::read(fd, bytes.data() + length, step);
        bytes.resize(length + (count > 0 ? static_cast<std::size_t>(count) : 0));
        if (count == 0)
            return Result::whole;
        if (count < 0 && errno != EINTR)
            return Result::refused;
    }
    return Result::unsuitable;
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

Descriptor openForReading(const std::filesystem::path& path)
{
    for (;;) {
        Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        if (file.isOpen() || errno != EINTR)
            return file;
    }
}

Result resultOf(int openError)
{
    switch (openError) {
    case ENOENT:
    case ENOTDIR:
        return Result::missing;
    case ELOOP:
    case ENAMETOOLONG:
    case ENXIO: // a socket
        return Result::unsuitable;
    default:
        return Result::refused;
    }
}

// Made anew: what lies there may be anything, a link or a FIFO too.
Descriptor openTemporary(const std::filesystem::path& path, mode_t mode)
{
    constexpr auto flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    Descriptor file(::open(path.c_str(), flags, mode));
    if (file.isOpen() || errno != EEXIST || ::unlink(path.c_str()) != 0)
        return file;
    return Descriptor(::open(path.c_str(), flags, mode));
}

// With the mode that the target is to have; none is open where the target is something that must stay.
Descriptor openTemporaryFor(const std::filesystem::path& target, const std::filesystem::path& path, FileAccess access)
{
    struct stat before {
    };
    const auto exists = ::stat(target.c_str(), &before) == 0;
    if (exists && !S_ISREG(before.st_mode) && !S_ISDIR(before.st_mode)) { // a folder is refused by the rename
        errno = EINVAL;
        return {};
    }
    auto file = openTemporary(path, access == FileAccess::asUsual && !exists ? usualMode : privateMode);
    if (access == FileAccess::asUsual && exists)
        ::fchmod(file.get(), before.st_mode & permissionBits);
    return file;
}

} // namespace

FileReading readFile(const std::filesystem::path& path, std::uint64_t mostBytes)
{
    const auto file = openForReading(path);
    if (!file.isOpen())
        return {resultOf(errno), {}};
    struct stat status {
    };
    if (::fstat(file.get(), &status) != 0)
        return {Result::refused, {}};
    if (!S_ISREG(status.st_mode) || static_cast<std::uint64_t>(status.st_size) > mostBytes)
        return {Result::unsuitable, {}};
    std::string bytes;
    const auto result = readAll(file.get(), bytes, mostBytes);
    if (result != Result::whole)
        bytes.clear();
    return {result, std::move(bytes)};
}

std::optional<std::string> readWholeFile(const std::filesystem::path& path, std::uint64_t mostBytes)
{
    auto reading = readFile(path, mostBytes);
    return reading.result == Result::whole ? std::optional(std::move(reading.bytes)) : std::nullopt;
}

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes, FileAccess access)
{
    const auto target = targetOf(path);
    if (!target)
        return false;
    const auto temporary = target->parent_path() / ("." + target->filename().string() + ".tmp");
    auto file = openTemporaryFor(*target, temporary, access);
    if (!file.isOpen())
        return false;
    if (writeAll(file.get(), bytes) && file.close() && ::rename(temporary.c_str(), target->c_str()) == 0)
        return true;
    const auto error = errno;
    ::unlink(temporary.c_str());
    errno = error;
    return false;
}

} // namespace orrinvale
