// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/SettingsView.h"
#include "orrinvale/WindowController.h"

namespace orrinvale
{

// The settings window.
class SettingsWindowController final : public WindowController
{
    Q_OBJECT

public:
    SettingsWindowController(AppSettings& settings, const Platform& platform, SettingsView::Surroundings surroundings);

    SettingsView& view() const { return *m_view; }

private:
    void applyTheme() override;

    SettingsView* m_view; // the window's
};

} // namespace orrinvale
