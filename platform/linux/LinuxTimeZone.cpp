// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxTimeZone.h"

#include <utility>

#include <sys/stat.h>

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace
{

constexpr auto quietTime = 200ms; // between taking the old link away and making the new one

} // namespace

LinuxTimeZone::LinuxTimeZone(MainQueue& queue, fs::path file)
    : m_queue(queue), m_file(std::move(file)), m_state(state()),
      m_watcher({QString::fromStdString(m_file.parent_path().string()), QString::fromStdString(m_file.string())})
{
    const auto lookSoon = [this] { m_look = m_queue.after(quietTime, [this] { fileChanged(); }); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_watcher, lookSoon);
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watcher, lookSoon);
}

// The folder holds much else that changes, and of the file it tells only that it came or went.
std::string LinuxTimeZone::state() const
{
    std::error_code none;
    struct stat status {
    };
    ::stat(m_file.c_str(), &status); // of what a link leads to
    return fmt::format("{} {} {} {}.{}", fs::read_symlink(m_file, none).string(), status.st_ino, status.st_size,
                       status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
}

void LinuxTimeZone::fileChanged()
{
    m_watcher.addPath(QString::fromStdString(m_file.string())); // a replaced one is watched no more
    auto now = state();
    if (std::exchange(m_state, now) != now)
        m_changes.set(m_changes.get() + 1);
}

Cancellable LinuxTimeZone::observeChanges(std::function<void()> onChange)
{
    return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
}

} // namespace orrinvale
