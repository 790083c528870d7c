// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacFolderWatcher.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

#include <dirent.h>
#include <dispatch/dispatch.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orrinvale
{

namespace
{

// What a source works with. The system may look at the descriptor until the source's last call, which deletes this.
struct Watch {
    int folder;
    std::function<void()> onChange;

    Watch(int opened, std::function<void()> call) : folder(opened), onChange(std::move(call)) {}
    ~Watch() { ::close(folder); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
};

// Serial, of utility priority, for all folders.
dispatch_queue_t watchQueue()
{
    static const auto queue = dispatch_queue_create_with_target("com.orrinvale.folderwatcher", nullptr,
                                                                dispatch_get_global_queue(QOS_CLASS_UTILITY, 0));
    return queue;
}

bool isFolder(int descriptor)
{
    struct stat status {
    };
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

bool isHidden(const char* name, const struct stat& status)
{
    return name[0] == '.' || (status.st_flags & UF_HIDDEN) != 0;
}

} // namespace

Instant instantOf(const timespec& time)
{
    constexpr auto limit = std::chrono::floor<std::chrono::seconds>(Instant::max().time_since_epoch()).count() - 1;
    const auto seconds = std::clamp<std::int64_t>(time.tv_sec, -limit, limit);
    return Instant(std::chrono::seconds(seconds) +
                   std::chrono::duration_cast<Instant::duration>(std::chrono::nanoseconds(time.tv_nsec)));
}

Cancellable MacFolderWatcher::watch(const std::string& path, std::function<void()> onChange)
{
    const auto folder = ::open(path.c_str(), O_EVTONLY | O_CLOEXEC);
    if (folder < 0)
        return {};
    auto watch = std::make_unique<Watch>(folder, std::move(onChange));
    if (!isFolder(folder))
        return {};
    const auto source =
        dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<std::uintptr_t>(folder),
                               DISPATCH_VNODE_WRITE | DISPATCH_VNODE_RENAME | DISPATCH_VNODE_DELETE, watchQueue());
    if (!source)
        return {};
    dispatch_set_context(source, watch.release());
    dispatch_source_set_event_handler_f(source, [](void* context) { static_cast<Watch*>(context)->onChange(); });
    dispatch_source_set_cancel_handler_f(source, [](void* context) { delete static_cast<Watch*>(context); });
    dispatch_resume(source); // it begins suspended
    return Cancellable([source] {
        dispatch_source_cancel(source);
        dispatch_release(source);
    });
}

std::optional<std::vector<FolderEntry>> MacFolderWatcher::entries(const std::string& path)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(path.c_str()), &::closedir);
    if (!folder)
        return std::nullopt;
    std::vector<FolderEntry> found;
    while (const auto* item = ::readdir(folder.get())) {
        struct stat status {
        };
        if (::fstatat(::dirfd(folder.get()), item->d_name, &status, 0) == 0 && !isHidden(item->d_name, status))
            found.push_back({item->d_name, instantOf(status.st_mtimespec)});
    }
    return found;
}

} // namespace orrinvale
