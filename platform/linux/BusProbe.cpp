// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/BusProbe.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string_view>

#include <cstdlib>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

struct Socket {
    explicit Socket(int number) : descriptor(number) {}
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket()
    {
        if (descriptor >= 0)
            ::close(descriptor);
    }
    const int descriptor;
};

std::string environment(const char* name)
{
    const auto* value = std::getenv(name);
    return value ? value : "";
}

// %2f is a slash, as in a URL.
std::string unescaped(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto isEscape = text[i] == '%' && i + 2 < text.size();
        plain.push_back(isEscape
                            ? static_cast<char>(std::strtol(std::string(text.substr(i + 1, 2)).c_str(), nullptr, 16))
                            : text[i]);
        i += isEscape ? 2 : 0;
    }
    return plain;
}

// The path of the first Unix socket of "unix:path=…,guid=…;unix:…"; one in the abstract namespace begins with a zero.
std::optional<std::string> socketPath(std::string_view address)
{
    const auto first = address.substr(0, address.find(';'));
    if (!first.starts_with("unix:"))
        return std::nullopt;
    for (auto rest = first.substr(5); !rest.empty();) {
        const auto pair = rest.substr(0, rest.find(','));
        rest.remove_prefix(std::min(rest.size(), pair.size() + 1));
        if (pair.starts_with("path="))
            return unescaped(pair.substr(5));
        if (pair.starts_with("abstract="))
            return std::string(1, '\0') + unescaped(pair.substr(9));
    }
    return std::nullopt;
}

// A full queue of a listener that takes nobody in says EAGAIN.
BusAnswer connectTo(int descriptor, const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (descriptor < 0 || path.size() >= sizeof address.sun_path)
        return BusAnswer::absent;
    std::copy(path.begin(), path.end(), address.sun_path);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    if (::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), length) == 0)
        return BusAnswer::answers;
    return errno == EAGAIN ? BusAnswer::hangs : BusAnswer::absent;
}

// Each digit of the user's number as the two digits of its character, as the conversation wants it.
std::string firstWord()
{
    std::string word(1, '\0');
    word += "AUTH EXTERNAL ";
    for (const auto digit : std::to_string(::geteuid()))
        word += fmt::format("{:02x}", static_cast<unsigned>(digit));
    return word + "\r\n";
}

} // namespace

std::string sessionBusAddress()
{
    const auto told = environment("DBUS_SESSION_BUS_ADDRESS");
    const auto folder = environment("XDG_RUNTIME_DIR");
    if (!told.empty() || folder.empty())
        return told;
    const auto usual = folder + "/bus";
    return ::access(usual.c_str(), F_OK) == 0 ? "unix:path=" + usual : "";
}

std::string systemBusAddress()
{
    const auto told = environment("DBUS_SYSTEM_BUS_ADDRESS");
    return told.empty() ? "unix:path=/run/dbus/system_bus_socket" : told;
}

BusAnswer probeBus(const std::string& address, const QDeadlineTimer& deadline)
{
    const auto path = socketPath(address);
    if (!path)
        return address.empty() ? BusAnswer::absent : BusAnswer::answers;
    const Socket socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (const auto connected = connectTo(socket.descriptor, *path); connected != BusAnswer::answers)
        return connected;
    const auto word = firstWord();
    if (::send(socket.descriptor, word.data(), word.size(), MSG_NOSIGNAL) < 0)
        return BusAnswer::absent;
    pollfd waiting{socket.descriptor, POLLIN, 0};
    int ready = 0;
    do {
        ready = ::poll(&waiting, 1, static_cast<int>(std::max<qint64>(deadline.remainingTime(), 0)));
    } while (ready < 0 && errno == EINTR);
    char answer = 0;
    if (ready <= 0)
        return BusAnswer::hangs;
    return ::recv(socket.descriptor, &answer, 1, 0) == 1 ? BusAnswer::answers : BusAnswer::absent;
}

} // namespace orrinvale
