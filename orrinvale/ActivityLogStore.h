// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ActivityEntry.h"
#include "orrinvale/DebouncedFile.h"

namespace orrinvale
{

// Keeps the activity log in "activity_log.json". Owned by the engine; main thread.
class ActivityLogStore
{
public:
    static constexpr std::int64_t maxStoredEntries = 5000;

    ActivityLogStore(ApplicationSupport& support, SerialQueues& queues);

    // The stored log, newest entry first; empty when the file is missing or anything in it is wrong.
    std::vector<ActivityEntry> load();
    // Schedules the writing of the first 5000 entries.
    void save(std::vector<ActivityEntry> entries);

    const std::filesystem::path& fileURL() const { return m_file.fileURL(); }

private:
    DebouncedFile m_file;
};

} // namespace orrinvale
