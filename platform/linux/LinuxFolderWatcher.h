// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FolderWatcher.h"

#include <memory>

namespace orrinvale
{

class MainQueue;

// Folder events from inotify on one thread that sleeps until there is one. The thread starts with the first watch;
// events wait while the system refuses it.
class LinuxFolderWatcher final : public FolderWatcher
{
public:
    // `retries` outlives the watcher, and is where a refused thread is tried again.
    explicit LinuxFolderWatcher(MainQueue& retries);
    ~LinuxFolderWatcher() override;

    [[nodiscard]] Cancellable watch(const std::string& path, std::function<void()> onChange) override;
    std::optional<std::vector<FolderEntry>> entries(const std::string& path) override;

private:
    struct Shared;
    MainQueue& m_retries;
    std::shared_ptr<Shared> m_shared;
};

} // namespace orrinvale
