// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppUsageStore.h"

#include <iterator>

namespace orrinvale
{

AppUsageStore::AppUsageStore(ApplicationSupport& support, SerialQueues& queues)
    : m_file(support, queues, "app_usage.json", "com.orrinvale.appusagestore")
{
}

UsageDays AppUsageStore::load()
{
    const auto text = m_file.read();
    return text ? decodeUsageDays(*text).value_or(UsageDays{}) : UsageDays{};
}

void AppUsageStore::save(const UsageDays& days)
{
    // Date keys sort as dates do: the newest are the last ones.
    auto first = days.begin();
    if (days.size() > maxStoredDays)
        std::advance(first, static_cast<std::ptrdiff_t>(days.size() - maxStoredDays));
    m_file.save([kept = UsageDays(first, days.end())] { return encodeUsageDays(kept); });
}

} // namespace orrinvale
