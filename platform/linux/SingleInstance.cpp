// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"

#include "base/ConsoleLine.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>

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

Descriptor makeSocket()
{
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

// Calls `use` (connect or bind) with the address of the socket in the folder. It goes through the open folder: an
// address holds 107 bytes, a path may be longer.
template <typename Use>
int withAddress(const std::filesystem::path& folder, Use use)
{
    const Descriptor opened(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto path = fmt::format("/proc/self/fd/{}/{}", opened.get(), socketName);
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return use(reinterpret_cast<const sockaddr*>(&address), socklen_t(sizeof address));
}

} // namespace

SingleInstance::SingleInstance(std::filesystem::path folder) : m_folder(std::move(folder)) {}

SingleInstance::~SingleInstance()
{
    stop();
}

SingleInstance::Role SingleInstance::claim()
{
    // The kernel drops the lock with the process, however that ends.
    const auto path = m_folder / lockName;
    m_lock = Descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    if (!m_lock.isOpen() || ::flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        return Role::first;
    const auto call = makeSocket(); // the connection itself is the message; it waits for nothing
    withAddress(m_folder, [&](const auto* address, auto size) { return ::connect(call.get(), address, size); });
    return Role::second;
}

void SingleInstance::listen(std::function<void()> comeForward)
{
    m_comeForward = std::move(comeForward);
    ::unlink((m_folder / socketName).c_str()); // left by one that was killed: the lock is ours
    m_socket = makeSocket();
    ::fchmod(m_socket.get(), S_IRUSR | S_IWUSR);
    const auto bound =
        withAddress(m_folder, [this](const auto* address, auto size) { return ::bind(m_socket.get(), address, size); });
    if (bound != 0 || ::listen(m_socket.get(), waitingCalls) != 0)
        return consoleLine("SingleInstance",
                           fmt::format("a second start cannot bring this one forward: {}", std::strerror(errno)));
    m_calls = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    QObject::connect(m_calls.get(), &QSocketNotifier::activated, this, [this] { accept(); });
}

void SingleInstance::accept()
{
    if (Descriptor(::accept4(m_socket.get(), nullptr, nullptr, SOCK_CLOEXEC)).isOpen())
        m_comeForward();
}

void SingleInstance::stop()
{
    m_calls.reset();
    if (!m_socket.isOpen())
        return;
    m_socket.close();
    ::unlink((m_folder / socketName).c_str());
}

} // namespace orrinvale
