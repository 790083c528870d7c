// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/SettingsView.h"
#include "orrinvale/WindowController.h"

#include <QPointer>

namespace orrinvale
{

class AppPickerSheet;

// The settings window, and the application picker over it.
class SettingsWindowController final : public WindowController
{
    Q_OBJECT

public:
    SettingsWindowController(AppSettings& settings, const Platform& platform, SettingsView::Surroundings surroundings);
    ~SettingsWindowController() override;

    SettingsView& view() const { return *m_view; }
    // nullptr while none is open.
    AppPickerSheet* appPicker() const;

private:
    void applyTheme() override;
    void showAppPicker();

    SettingsView* m_view; // the window's
    QPointer<AppPickerSheet> m_appPicker;
};

} // namespace orrinvale
