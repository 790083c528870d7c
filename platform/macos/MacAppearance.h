// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/MainQueue.h"
#include "base/Published.h"
#include "platform/Appearance.h"

namespace orrinvale
{

// The appearance of the whole application, which Qt's palette follows by itself. Needs the application object.
class MacAppearance final : public Appearance
{
public:
    explicit MacAppearance(MainQueue& queue);

    void apply(AppearanceChoice choice) override;
    bool isDark() const override;
    bool reducesMotion() const override;
    bool isComposited() const override { return true; } // always, there
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

private:
    MainQueue& m_queue;
    Published<int> m_changes;
    Cancellable m_observer;
};

} // namespace orrinvale
