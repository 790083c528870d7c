// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DesktopEntryIndex.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace orrinvale
{

// The newest index of the desktop entries in some folders. One thread reads, which a mount that hangs may hold up for
// ever; others take what it has read so far.
class DesktopEntryFolders
{
public:
    using Index = std::shared_ptr<const DesktopEntryIndex>;

    explicit DesktopEntryFolders(std::vector<std::filesystem::path> folders);

    // Reads the folders anew when something came or went in them or below, and whether it did. On the reading thread.
    bool update();
    // Waits for the first reading alone, and no longer than `bound`; without one it is empty. Any thread.
    Index newest(std::chrono::milliseconds bound) const;

private:
    using Stamps = std::vector<std::filesystem::file_time_type>;
    Stamps stamps() const;
    void watchSubfolders();

    std::vector<std::filesystem::path> m_folders;
    std::vector<std::filesystem::path> m_watched; // with their sub-folders
    std::optional<Stamps> m_stamps;
    mutable std::mutex m_mutex; // of the index alone
    mutable std::condition_variable m_read;
    Index m_index;
};

} // namespace orrinvale
