// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WidgetInterface.h"

#include "orrinvale/MenuBarController.h"
#include "orrinvale/StatusItem.h"
#include "platform/Platform.h"

#include <QCoreApplication>

namespace orrinvale
{

WidgetInterface::WidgetInterface(AppSettings& settings, const Platform& platform)
    : m_settings(settings), m_platform(platform)
{
}

WidgetInterface::~WidgetInterface() = default;

void WidgetInterface::showStatusItem(WakeEngine& engine)
{
    m_statusItem = std::make_unique<StatusItem>(m_platform.mainQueue);
    m_menuBar =
        std::make_unique<MenuBarController>(engine, m_settings, m_platform, *m_statusItem,
                                            MenuBarController::Destinations{{}, {}, [] { QCoreApplication::quit(); }});
}

void WidgetInterface::comeForward()
{
    if (m_menuBar)
        m_menuBar->comeForward();
}

} // namespace orrinvale
