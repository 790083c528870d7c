// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"

#include <QLocalSocket>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

constexpr int patience = 1000; // milliseconds for the first one to take the call

} // namespace

SingleInstance::SingleInstance(std::filesystem::path folder)
    : m_socketPath(QString::fromStdString((folder / "orrinvale.socket").string())),
      m_lockPath((folder / "orrinvale.lock").string())
{
}

SingleInstance::~SingleInstance()
{
    if (m_lock >= 0)
        ::close(m_lock);
}

SingleInstance::Role SingleInstance::claim()
{
    // The kernel drops the lock with the process, however that ends.
    m_lock = ::open(m_lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (m_lock < 0 || ::flock(m_lock, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        return Role::First;
    QLocalSocket call;
    call.connectToServer(m_socketPath);
    call.waitForConnected(patience);
    return Role::Second;
}

void SingleInstance::listen(std::function<void()> comeForward)
{
    QObject::connect(&m_server, &QLocalServer::newConnection, this, [this, comeForward = std::move(comeForward)] {
        while (auto* caller = m_server.nextPendingConnection())
            caller->deleteLater();
        comeForward();
    });
    QLocalServer::removeServer(m_socketPath); // left by one that was killed: the lock is ours
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(m_socketPath);
}

} // namespace orrinvale
