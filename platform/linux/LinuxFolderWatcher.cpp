// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxFolderWatcher.h"

#include "base/BackgroundThread.h"
#include "base/Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

// What a folder's own write event means elsewhere. No modify events: a busy download would cost a scan a write.
constexpr std::uint32_t folderEvents =
    IN_CREATE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF;

// Clamped to what an instant can hold: file systems know dates beyond.
Instant instantOf(const timespec& time)
{
    using namespace std::chrono;
    constexpr auto limit = floor<seconds>(Instant::max().time_since_epoch()).count() - 1;
    const auto whole = std::clamp<std::int64_t>(time.tv_sec, -limit, limit);
    return Instant(seconds(whole) + duration_cast<Instant::duration>(nanoseconds(time.tv_nsec)));
}

std::optional<FolderEntry> entryOf(int folder, const char* name)
{
    struct stat status {
    };
    if (name[0] == '.' || ::fstatat(folder, name, &status, 0) != 0)
        return std::nullopt;
    return FolderEntry{name, instantOf(status.st_mtim)};
}

} // namespace

// Kept alive by the thread and by who opens a folder; owns the descriptors.
struct LinuxFolderWatcher::Shared {
    using Handler = std::shared_ptr<std::function<void()>>;

    const Descriptor inotify{::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)};
    const Descriptor ending{::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    std::mutex mutex;
    std::multimap<int, Handler> handlers; // by watch descriptor: one folder may be watched twice
    std::set<int> left;                   // watch descriptors that may have lost their last handler
    int opening = 0;
    bool running = false;

    // The folder is opened without the lock: that takes as long as its file system does, and removing must not wait.
    int add(const std::string& path, const Handler& handler)
    {
        countOpening();
        const auto descriptor = ::inotify_add_watch(inotify.get(), path.c_str(), folderEvents | IN_ONLYDIR);
        const std::lock_guard lock(mutex);
        --opening;
        if (descriptor >= 0)
            handlers.emplace(descriptor, handler);
        endLeft();
        return descriptor;
    }

    void countOpening()
    {
        const std::lock_guard lock(mutex);
        ++opening;
    }

    void remove(int descriptor, const Handler& handler)
    {
        const std::lock_guard lock(mutex);
        const auto [first, last] = handlers.equal_range(descriptor);
        const auto found = std::find_if(first, last, [&](const auto& each) { return each.second == handler; });
        if (found != last)
            handlers.erase(found);
        left.insert(descriptor);
        endLeft();
    }

    // Who opens a folder just now may have been given the descriptor that an earlier watch of it leaves.
    void endLeft()
    {
        if (opening > 0)
            return;
        for (const auto descriptor : std::exchange(left, {})) {
            if (!handlers.contains(descriptor))
                ::inotify_rm_watch(inotify.get(), descriptor);
        }
    }

    // On the first call.
    static void startThread(const std::shared_ptr<Shared>& shared, MainQueue& retries)
    {
        const std::lock_guard lock(shared->mutex);
        if (!std::exchange(shared->running, true))
            startBackgroundThread(retries, "folderwatcher", [shared] { shared->run(); });
    }

    void run()
    {
        std::array<pollfd, 2> waiting{{{inotify.get(), POLLIN, 0}, {ending.get(), POLLIN, 0}}};
        while (::poll(waiting.data(), waiting.size(), -1) > 0 || errno == EINTR) {
            if (waiting[1].revents != 0)
                return;
            if (waiting[0].revents != 0)
                readEvents();
        }
    }

    void readEvents()
    {
        alignas(inotify_event) std::array<char, 16384> buffer;
        std::vector<Handler> changed;
        for (ssize_t length; (length = ::read(inotify.get(), buffer.data(), buffer.size())) > 0;) {
            for (ssize_t offset = 0; offset < length;) {
                const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + offset);
                offset += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
                collect(*event, changed);
            }
        }
        for (const auto& handler : changed)
            (*handler)();
    }

    void collect(const inotify_event& event, std::vector<Handler>& changed)
    {
        const std::lock_guard lock(mutex);
        const auto everyone = (event.mask & IN_Q_OVERFLOW) != 0;
        for (const auto& [descriptor, handler] : handlers) {
            const auto known = std::find(changed.begin(), changed.end(), handler) != changed.end();
            if ((everyone || descriptor == event.wd) && !known)
                changed.push_back(handler);
        }
    }
};

LinuxFolderWatcher::LinuxFolderWatcher(MainQueue& retries) : m_retries(retries), m_shared(std::make_shared<Shared>()) {}

LinuxFolderWatcher::~LinuxFolderWatcher()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(m_shared->ending.get(), &one, sizeof one);
}

Cancellable LinuxFolderWatcher::watch(const std::string& path, std::function<void()> onChange)
{
    const auto watching = m_shared; // the watcher may go while the folder is being opened
    auto& retries = m_retries;
    const auto handler = std::make_shared<std::function<void()>>(std::move(onChange));
    const auto descriptor = watching->add(path, handler);
    if (descriptor < 0)
        return {};
    Shared::startThread(watching, retries);
    return Cancellable([weak = std::weak_ptr(watching), descriptor, handler] {
        if (const auto shared = weak.lock())
            shared->remove(descriptor, handler);
    });
}

std::optional<std::vector<FolderEntry>> LinuxFolderWatcher::entries(const std::string& path)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(path.c_str()), ::closedir);
    if (!folder)
        return std::nullopt;
    std::vector<FolderEntry> found;
    for (;;) {
        errno = 0; // the end and a failure look alike otherwise
        const auto* item = ::readdir(folder.get());
        if (!item)
            return errno == 0 ? std::optional(std::move(found)) : std::nullopt;
        if (auto entry = entryOf(::dirfd(folder.get()), item->d_name))
            found.push_back(std::move(*entry));
    }
}

} // namespace orrinvale
