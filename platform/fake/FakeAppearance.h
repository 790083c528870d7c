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
    bool motionIsReduced = false;
    bool composited = false;
    std::vector<AppearanceChoice> applied;

    void apply(AppearanceChoice choice) override { applied.push_back(choice); }
    bool isDark() const override
    {
        const auto choice = applied.empty() ? AppearanceChoice::followSystem : applied.back();
        return choice == AppearanceChoice::followSystem ? systemIsDark : choice == AppearanceChoice::dark;
    }
    bool reducesMotion() const override { return motionIsReduced; }
    bool isComposited() const override { return composited; }
    void switchSystem(bool toDark)
    {
        systemIsDark = toDark;
        m_changes.set(m_changes.get() + 1);
    }
    Cancellable observeChanges(std::function<void()> onChange) override
    {
        return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
    }

private:
    Published<int> m_changes;
};

} // namespace orrinvale
