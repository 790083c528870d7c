// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "platform/RunningApplications.h"

namespace orrinvale
{

class FakeRunningApplications final : public RunningApplications
{
public:
    std::vector<RunningApplication> list;
    int refreshes = 0;

    void run(std::string bundleIdentifier, std::string name, std::vector<std::string> alsoKnownAs = {})
    {
        list.push_back({.bundleIdentifier = std::move(bundleIdentifier),
                        .localizedName = std::move(name),
                        .executablePath = std::nullopt,
                        .alsoKnownAs = std::move(alsoKnownAs)});
    }
    void quit(const std::string& bundleIdentifier)
    {
        std::erase_if(list, [&](const auto& application) { return application.bundleIdentifier == bundleIdentifier; });
    }
    void announceChange() { m_changes.set(m_changes.get() + 1); }

    const std::vector<RunningApplication>& applications() const override { return list; }
    void refresh() override { ++refreshes; }
    Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
    }

private:
    Published<int> m_changes;
};

} // namespace orrinvale
