// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "base/Published.h"
#include "platform/TimeZone.h"

#include <QFileSystemWatcher>

#include <filesystem>

namespace orrinvale
{

// Watches the file that names the zone, which timedated and administrators replace: a symbolic link into the zone
// database, or a copy of one of its files. Main thread.
class LinuxTimeZone final : public TimeZone
{
public:
    explicit LinuxTimeZone(MainQueue& queue, std::filesystem::path file = "/etc/localtime");

    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

private:
    void fileChanged();
    std::string state() const;

    MainQueue& m_queue;
    std::filesystem::path m_file;
    std::string m_state; // of the file when last looked at
    QFileSystemWatcher m_watcher;
    Published<int> m_changes;
    Cancellable m_look;
};

} // namespace orrinvale
