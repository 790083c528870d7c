// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ApplicationInterface.h"

#include <memory>

namespace orrinvale
{

class AppSettings;
class MenuBarController;
class StatusItem;
struct Platform;

// The application as the user sees it, in Qt Widgets: everything is made when it is first needed. Main thread.
class WidgetInterface final : public ApplicationInterface
{
public:
    WidgetInterface(AppSettings& settings, const Platform& platform);
    ~WidgetInterface() override;

    void showStatusItem(WakeEngine& engine) override;
    // The user started the application again: whatever there is to see comes to the front.
    void comeForward();

private:
    AppSettings& m_settings;
    const Platform& m_platform;
    std::unique_ptr<StatusItem> m_statusItem;
    std::unique_ptr<MenuBarController> m_menuBar;
};

} // namespace orrinvale
