// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "platform/Appearance.h"
#include "platform/linux/DBus.h"

#include <optional>

namespace orrinvale
{

// The desktop's choice of light or dark and of motion, from the settings portal; where there is none, light or dark
// from the palette, and motion.
class LinuxAppearance final : public QObject, public Appearance
{
    Q_OBJECT

public:
    // What only the window system knows and does.
    struct Windows {
        std::function<bool()> isPaletteDark;
        std::function<bool()> isComposited;
        std::function<void(std::optional<bool> isDark)> apply; // to our windows; nullopt: as the desktop's others are
    };
    LinuxAppearance(const QDBusConnection& sessionBus, Windows windows);

    // Waits for the portal's first answer, at most until `deadline`.
    void prime(const QDeadlineTimer& deadline);

    void apply(AppearanceChoice choice) override;
    bool isDark() const override;
    bool reducesMotion() const override { return m_reducesMotion; }
    bool isComposited() const override { return m_windows.isComposited(); }
    [[nodiscard]] Cancellable observeChanges(std::function<void()> onChange) override;

private:
    void ask();
    void applyToWindows();
    void take(const QString& settingsNamespace, const QString& key, const QVariant& value);
    void takeColorScheme(const QVariant& value);
    void takeDurationFactor(const QVariant& value);

    QDBusConnection m_bus;
    Windows m_windows;
    AppearanceChoice m_choice = AppearanceChoice::followSystem;
    std::optional<bool> m_systemIsDark; // nullopt: the portal tells nothing
    bool m_reducesMotion = false;
    Published<int> m_changes;
    QDBusServiceWatcher m_watcher;
    DBusSignal m_settingChanged;
};

} // namespace orrinvale
