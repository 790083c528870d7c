// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InstalledApplications.h"

#include <functional>

namespace orrinvale
{

class FakeInstalledApplications final : public InstalledApplications
{
public:
    std::vector<InstalledApplication> list;
    mutable int scans = 0;
    std::function<void()> onScan = [] {}; // during a scan

    void install(std::string bundleIdentifier, std::string name, std::string path = "/applications/some")
    {
        list.push_back({std::move(bundleIdentifier), std::move(name), std::move(path), {}});
    }

    std::vector<InstalledApplication> scan() const override
    {
        ++scans;
        onScan();
        return list;
    }
    std::optional<InstalledApplication> find(const std::string& bundleIdentifier) const override
    {
        for (const auto& application : list) {
            if (application.bundleIdentifier == bundleIdentifier)
                return application;
        }
        return std::nullopt;
    }
};

} // namespace orrinvale
