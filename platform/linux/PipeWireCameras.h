// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"

#include <memory>

namespace orrinvale
{

// Whether somebody films through PipeWire, which then holds the device itself. The connection is made at the first
// question, is told of every change, and is let go after a minute without questions. Main thread.
class PipeWireCameras
{
public:
    explicit PipeWireCameras(MainQueue& queue);
    ~PipeWireCameras();

    // The first question waits for the answer, at most 200 ms; later ones are answered from memory.
    bool isAnyInUse();

private:
    class Connection;

    MainQueue& m_queue;
    std::unique_ptr<Connection> m_connection;
    Cancellable m_letGo;
};

} // namespace orrinvale
