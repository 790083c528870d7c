// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/InstalledApp.h"

#include "platform/InstalledApplications.h"
#include "platform/RunningApplications.h"
#include "text/LocalizedText.h"

#include <algorithm>
#include <numeric>
#include <unordered_set>

namespace orrinvale
{

namespace
{

using Apps = std::vector<InstalledApp>;

InstalledApp appOf(InstalledApplication application)
{
    auto icon = application.iconName.empty() ? std::nullopt : std::optional(std::move(application.iconName));
    return {std::move(application.bundleIdentifier), std::move(application.name), std::move(icon),
            std::move(application.path)};
}

InstalledApp appOf(const RunningApplication& application)
{
    const auto& id = *application.bundleIdentifier;
    return {id, application.localizedName.value_or(id), application.iconName, {}};
}

bool isListed(const RunningApplication& application)
{
    return application.bundleIdentifier && application.activationPolicy == ActivationPolicy::regular;
}

Apps sortedByName(Apps apps, const std::string& locale)
{
    std::vector<std::string_view> names;
    for (const auto& app : apps)
        names.emplace_back(app.name);
    const auto keys = sortKeys(names, locale);
    std::vector<std::size_t> order(apps.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](auto left, auto right) { return keys[left] < keys[right]; });
    Apps sorted;
    sorted.reserve(apps.size());
    for (const auto index : order)
        sorted.push_back(std::move(apps[index]));
    return sorted;
}

} // namespace

std::vector<InstalledApp> installedApps(std::vector<InstalledApplication> installed,
                                        const std::vector<RunningApplication>& running, const std::string& locale)
{
    Apps apps;
    std::unordered_set<std::string> taken;
    const auto add = [&](InstalledApp app) {
        if (!app.id.empty() && taken.insert(app.id).second)
            apps.push_back(std::move(app));
    };
    for (auto& application : installed)
        add(appOf(std::move(application)));
    for (const auto& application : running) {
        if (isListed(application))
            add(appOf(application));
    }
    return sortedByName(std::move(apps), locale);
}

} // namespace orrinvale
