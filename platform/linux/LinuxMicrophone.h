// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"

#include <memory>
#include <string>

namespace orrinvale
{

// Whether somebody records from a microphone, from a sound server that speaks PulseAudio's protocol. The connection is
// made at the first question, is told of every change, and is let go after a minute without questions. Main thread.
class LinuxMicrophone
{
public:
    explicit LinuxMicrophone(MainQueue& queue, std::string asoundFolder = "/proc/asound");
    ~LinuxMicrophone();

    // The first question waits for the server's answer, at most 200 ms; later ones are answered from memory.
    bool isInUse();

private:
    class Server;

    MainQueue& m_queue;
    std::string m_asoundFolder;
    std::unique_ptr<Server> m_server;
    Cancellable m_letGo;
};

} // namespace orrinvale
