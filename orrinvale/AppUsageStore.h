// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/DayUsageRecord.h"
#include "orrinvale/DebouncedFile.h"

namespace orrinvale
{

// Keeps the usage records in "app_usage.json", the newest 120 days of them. Owned by the tracker; main thread.
class AppUsageStore
{
public:
    static constexpr std::int64_t maxStoredDays = 120;

    AppUsageStore(ApplicationSupport& support, SerialQueues& queues);

    // Empty when the file is missing or anything in it is wrong.
    UsageDays load();
    void save(const UsageDays& days);

    const std::filesystem::path& fileURL() const { return m_file.fileURL(); }

private:
    DebouncedFile m_file;
};

} // namespace orrinvale
