// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "base/Clock.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

struct FolderEntry {
    std::string name; // as listed, any bytes
    Instant modified; // of the content
};

// Tells of changes in one folder, and lists it.
class FolderWatcher
{
public:
    virtual ~FolderWatcher() = default;
    // Calls `onChange` on a background thread after entries came, went or were renamed, from the return on until the
    // token is dropped; events in a row may come as one call. An empty token: the folder could not be opened. Any
    // thread but the main one: it may take as long as the file system does. The token may be dropped on any thread and
    // waits for no folder.
    [[nodiscard]] virtual Cancellable watch(const std::string& path, std::function<void()> onChange) = 0;
    // The direct entries without the hidden ones (and without those whose date cannot be read); nullopt when the
    // folder cannot be listed. Any thread; may take as long as the file system does.
    virtual std::optional<std::vector<FolderEntry>> entries(const std::string& path) = 0;
};

} // namespace orrinvale
