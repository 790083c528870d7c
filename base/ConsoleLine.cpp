// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ConsoleLine.h"

#include "base/Descriptor.h"

#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

bool takesAtOnce(int descriptor)
{
    pollfd waiting{descriptor, POLLOUT, 0};
    return ::poll(&waiting, 1, 0) > 0 && waiting.revents == POLLOUT;
}

// The descriptor itself is shared with whoever started us: making it non-blocking would change theirs too. A pipe or a
// terminal is opened anew where the system allows it, since one that takes something need not take a whole line.
void writeWithoutWaiting(int descriptor, const std::string& line)
{
    struct stat status {
    };
    if (::fstat(descriptor, &status) != 0)
        return;
    const auto mayWait = S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode);
    if (mayWait && !takesAtOnce(descriptor))
        return; // a line that finds no room is lost
    const auto path = "/dev/fd/" + std::to_string(descriptor);
    const Descriptor own(mayWait ? ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC) : -1);
    [[maybe_unused]] ssize_t written = 0;
    if (own.isOpen())
        written = ::write(own.get(), line.data(), line.size());
    else if (S_ISSOCK(status.st_mode))
        written = ::send(descriptor, line.data(), line.size(), MSG_DONTWAIT);
    else
        written = ::write(descriptor, line.data(), line.size());
}

} // namespace

void consoleLine(std::string_view component, std::string_view text)
{
    auto line = std::string("⚠️ ");
    line.append(component).append(": ").append(text).push_back('\n');
    writeWithoutWaiting(STDOUT_FILENO, line);
}

} // namespace orrinvale
