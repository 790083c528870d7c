// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"

#include "base/ConsoleLine.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

constexpr auto socketName = "orrinvale.socket";
constexpr auto lockName = "orrinvale.lock";
constexpr auto waitingCalls = 8;

int makeSocket()
{
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

// Calls `use` (connect or bind) with the address of the socket in the folder. It goes through the open folder: an
// address holds 107 bytes, a path may be longer.
template <typename Use>
int withAddress(const std::filesystem::path& folder, Use use)
{
    const auto descriptor = ::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto path = fmt::format("/proc/self/fd/{}/{}", descriptor, socketName);
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const auto result = use(reinterpret_cast<const sockaddr*>(&address), socklen_t(sizeof address));
    if (descriptor >= 0)
        ::close(descriptor);
    return result;
}

} // namespace

SingleInstance::SingleInstance(std::filesystem::path folder) : m_folder(std::move(folder)) {}

SingleInstance::~SingleInstance()
{
    stop();
    if (m_lock >= 0)
        ::close(m_lock);
}

SingleInstance::Role SingleInstance::claim()
{
    // The kernel drops the lock with the process, however that ends.
    m_lock = ::open((m_folder / lockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (m_lock < 0 || ::flock(m_lock, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        return Role::first;
    const auto call = makeSocket(); // the connection itself is the message; it waits for nothing
    withAddress(m_folder, [call](const auto* address, auto size) { return ::connect(call, address, size); });
    ::close(call);
    return Role::second;
}

void SingleInstance::listen(std::function<void()> comeForward)
{
    m_comeForward = std::move(comeForward);
    ::unlink((m_folder / socketName).c_str()); // left by one that was killed: the lock is ours
    m_socket = makeSocket();
    ::fchmod(m_socket, S_IRUSR | S_IWUSR);
    const auto bound =
        withAddress(m_folder, [this](const auto* address, auto size) { return ::bind(m_socket, address, size); });
    if (bound != 0 || ::listen(m_socket, waitingCalls) != 0)
        return consoleLine("SingleInstance",
                           fmt::format("a second start cannot bring this one forward: {}", std::strerror(errno)));
    m_calls = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_calls.get(), &QSocketNotifier::activated, this, [this] { accept(); });
}

void SingleInstance::accept()
{
    const auto caller = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
    if (caller < 0)
        return;
    ::close(caller);
    m_comeForward();
}

void SingleInstance::stop()
{
    m_calls.reset();
    if (m_socket < 0)
        return;
    ::close(std::exchange(m_socket, -1));
    ::unlink((m_folder / socketName).c_str());
}

} // namespace orrinvale
