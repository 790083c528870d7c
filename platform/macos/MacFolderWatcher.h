// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FolderWatcher.h"

namespace orrinvale
{

// Folder events from the system's dispatch queues. The first look into a protected folder, which Downloads is, asks the
// user for consent and holds up its thread until the answer.
class MacFolderWatcher final : public FolderWatcher
{
public:
    [[nodiscard]] Cancellable watch(const std::string& path, std::function<void()> onChange) override;
    std::optional<std::vector<FolderEntry>> entries(const std::string& path) override;
};

// Of any time that a file may have, at the nearest end of what the clock can tell.
Instant instantOf(const timespec& time);

} // namespace orrinvale
