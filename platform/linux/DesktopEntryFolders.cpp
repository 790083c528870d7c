// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntryFolders.h"

namespace orrinvale
{

namespace fs = std::filesystem;

DesktopEntryFolders::DesktopEntryFolders(std::vector<fs::path> folders)
    : m_folders(std::move(folders)), m_watched(m_folders)
{
}

DesktopEntryFolders::Stamps DesktopEntryFolders::stamps() const
{
    Stamps all;
    std::error_code error;
    for (const auto& folder : m_watched)
        all.push_back(fs::last_write_time(folder, error));
    return all;
}

// A folder changes when something comes or goes in it, and not with what is in its sub-folders.
void DesktopEntryFolders::watchSubfolders()
{
    m_watched = m_folders;
    for (const auto& folder : m_folders) {
        std::error_code error;
        fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error);
        for (; !error && each != fs::recursive_directory_iterator(); each.increment(error))
            if (std::error_code ignored; each->is_directory(ignored))
                m_watched.push_back(each->path());
    }
}

bool DesktopEntryFolders::update()
{
    if (m_stamps == stamps())
        return false;
    watchSubfolders();
    m_stamps = stamps(); // before the entries are read: what changes meanwhile is read again
    auto index = std::make_shared<const DesktopEntryIndex>(readDesktopEntries(m_folders));
    const std::lock_guard lock(m_mutex);
    m_index = std::move(index);
    m_read.notify_all();
    return true;
}

DesktopEntryFolders::Index DesktopEntryFolders::newest(std::chrono::milliseconds bound) const
{
    static const auto none = std::make_shared<const DesktopEntryIndex>();
    std::unique_lock lock(m_mutex);
    m_read.wait_for(lock, bound, [this] { return m_index != nullptr; });
    return m_index ? m_index : none;
}

} // namespace orrinvale
