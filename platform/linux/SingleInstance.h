// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"

#include <QObject>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

class QSocketNotifier;

namespace orrinvale
{

// Lets one application run in a session: the first holds a lock and listens on a socket, a later one asks it to come
// forward. Both lie in one folder of the user's; no session bus is needed. Main thread.
class SingleInstance final : public QObject
{
    Q_OBJECT

public:
    enum class Role { first, second };

    explicit SingleInstance(std::filesystem::path folder);
    ~SingleInstance() override;

    // Second: the first one was asked to come forward. A lock that cannot be had for another reason than a holder
    // (a folder that is read-only) makes this the first: better two than none.
    Role claim();
    // `comeForward` is called each time another one starts.
    void listen(std::function<void()> comeForward);
    // Takes the socket away; the lock goes with the process.
    void stop();

private:
    void accept();

    std::filesystem::path m_folder;
    Descriptor m_lock;
    Descriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_calls;
    std::function<void()> m_comeForward;
};

} // namespace orrinvale
