// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "platform/Appearance.h"

#include <vector>

namespace orrinvale
{

class FakeAppearance final : public Appearance
{
public:
    bool systemIsDark = false;
    std::vector<AppearanceChoice> applied;

    void apply(AppearanceChoice choice) override { applied.push_back(choice); }
    bool isDark() const override
    {
        const auto choice = applied.empty() ? AppearanceChoice::FollowSystem : applied.back();
        return choice == AppearanceChoice::FollowSystem ? systemIsDark : choice == AppearanceChoice::Dark;
    }
    Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::ChangesOnly);
    }

private:
    Published<int> m_changes;
};

} // namespace orrinvale
