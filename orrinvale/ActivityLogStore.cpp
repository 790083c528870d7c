// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityLogStore.h"

namespace orrinvale
{

ActivityLogStore::ActivityLogStore(ApplicationSupport& support, SerialQueues& queues)
    : m_file(support, queues, "activity_log.json", "com.orrinvale.activitylogstore")
{
}

std::vector<ActivityEntry> ActivityLogStore::load()
{
    const auto text = m_file.read();
    return text ? decodeActivityLog(*text).value_or(std::vector<ActivityEntry>{}) : std::vector<ActivityEntry>{};
}

void ActivityLogStore::save(std::vector<ActivityEntry> entries)
{
    if (entries.size() > maxStoredEntries)
        entries.resize(maxStoredEntries);
    m_file.save([entries = std::move(entries)] { return encodeActivityLog(entries); });
}

} // namespace orrinvale
