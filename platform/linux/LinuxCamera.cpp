// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxCamera.h"

#include "platform/linux/ProcFolder.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

#include <fmt/format.h>

namespace orrinvale
{

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace
{

constexpr auto firstAnswer = 100ms;
constexpr std::string_view nodePrefix = "video";

bool mayHold(const std::string& comm)
{
    // The media server opens a camera to look at it; who uses it through the server is told by the server's own node.
    return comm != "pipewire" && comm != "wireplumber";
}

bool holdsDevice(const std::string& procFolder, std::int32_t pid, const std::string& prefix)
{
    std::error_code error;
    const fs::path folder = fmt::format("{}/{}/fd", procFolder, pid);
    for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
        std::error_code gone;
        if (fs::read_symlink(each->path(), gone).string().starts_with(prefix))
            return true;
    }
    return false;
}

// nullopt when the processes cannot be told.
std::optional<bool> isAnyDeviceHeld(const std::string& procFolder, const std::string& prefix)
{
    const auto pids = processIds(procFolder);
    if (!pids)
        return std::nullopt;
    for (const auto pid : *pids) {
        if (pid != ::getpid() && holdsDevice(procFolder, pid, prefix)) {
            const auto stat = processStat(procFolder, pid);
            if (stat && mayHold(stat->comm))
                return true;
        }
    }
    return false;
}

} // namespace

LinuxCamera::LinuxCamera(MainQueue& queue, SerialQueue& background, std::string deviceFolder, std::string procFolder)
    : m_queue(queue), m_background(background), m_deviceFolder(std::move(deviceFolder)),
      m_procFolder(std::move(procFolder))
{
}

// Whether the kernel will tell of all that happens to a path; what is gone needs no watch.
bool LinuxCamera::watch(const std::string& path, std::uint32_t events)
{
    return ::inotify_add_watch(m_inotify.get(), path.c_str(), events) >= 0 || errno == ENOENT;
}

bool LinuxCamera::watchDevices()
{
    auto isWatching = watch(m_deviceFolder, IN_CREATE | IN_DELETE);
    std::error_code error;
    for (fs::directory_iterator each(m_deviceFolder, error), end; !error && each != end; each.increment(error)) {
        if (each->path().filename().string().starts_with(nodePrefix))
            isWatching = watch(each->path().string(), IN_OPEN | IN_CLOSE) && isWatching;
    }
    return isWatching;
}

// Reads what waits, and never waits itself.
bool LinuxCamera::takeEvents()
{
    std::array<char, 4096> events;
    bool any = false;
    while (::read(m_inotify.get(), events.data(), events.size()) > 0)
        any = true;
    return any;
}

bool LinuxCamera::hasChanged()
{
    if (!m_inotify.isOpen())
        m_inotify = Descriptor(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!m_inotify.isOpen())
        return true;
    const auto wasWatching = m_isWatching;
    const auto changed = takeEvents() || !wasWatching; // whatever happened before the watch is unknown
    if (changed)
        m_isWatching = watchDevices(); // a camera may have been plugged in
    return changed;
}

bool LinuxCamera::isInUse()
{
    const auto isFirstQuestion = !std::exchange(m_wasAsked, true);
    m_isStale = hasChanged() || m_isStale || std::exchange(m_isUnknown, false);
    lookIfStale();
    if (isFirstQuestion && m_look.wait_for(firstAnswer) == std::future_status::ready)
        m_isInUse = m_look.get().value_or(m_isInUse);
    return m_isInUse;
}

void LinuxCamera::lookIfStale()
{
    if (!m_isStale || m_isLooking)
        return;
    m_isStale = false;
    m_isLooking = true;
    const auto look = std::make_shared<std::promise<std::optional<bool>>>(); // shared, since work is copied
    m_look = look->get_future();
    m_background.post([&queue = m_queue, proc = m_procFolder, prefix = fmt::format("{}/{}", m_deviceFolder, nodePrefix),
                       look,
                       finish = m_lifetime.unlessGone([this](std::optional<bool> found) { this->finish(found); })] {
        const auto found = isAnyDeviceHeld(proc, prefix);
        look->set_value(found);
        queue.post([finish, found] { finish(found); });
    });
}

void LinuxCamera::finish(std::optional<bool> found)
{
    m_isLooking = false;
    const auto held = found.value_or(m_isInUse);
    m_isUnknown = !found;
    lookIfStale(); // somebody asked meanwhile
    if (std::exchange(m_isInUse, held) != held)
        m_changes.set(m_changes.get() + 1);
}

Cancellable LinuxCamera::observeChanges(std::function<void()> onChange)
{
    return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
}

} // namespace orrinvale
