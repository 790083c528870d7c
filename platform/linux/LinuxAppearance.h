// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "platform/Appearance.h"
#include "platform/linux/DBus.h"

#include <chrono>
#include <optional>

namespace orrinvale
{

// The desktop's choice of light or dark, from the settings portal; where there is none, from `isPaletteDark`.
class LinuxAppearance final : public QObject, public Appearance
{
    Q_OBJECT

public:
    // `onApply` gives the application's windows the appearance that was chosen.
    LinuxAppearance(const QDBusConnection& sessionBus, std::function<bool()> isPaletteDark,
                    std::function<void(AppearanceChoice)> onApply);

    // Waits for the portal's first answer, at most for `bound`.
    void prime(std::chrono::milliseconds bound);

    void apply(AppearanceChoice choice) override;
    bool isDark() const override;
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

private:
    void take(const QVariant& colorScheme);

    QDBusConnection m_bus;
    std::function<bool()> m_isPaletteDark;
    std::function<void(AppearanceChoice)> m_onApply;
    AppearanceChoice m_choice = AppearanceChoice::FollowSystem;
    std::optional<bool> m_systemIsDark; // nullopt: the portal tells nothing
    Published<int> m_changes;
    QDBusServiceWatcher m_watcher;
    DBusSignal m_settingChanged;
};

} // namespace orrinvale
