// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsWindowController.h"

namespace orrinvale
{

SettingsWindowController::SettingsWindowController(AppSettings& settings, const Platform& platform,
                                                   SettingsView::Surroundings surroundings)
    : WindowController(settings, platform, {QStringLiteral("orrinvale Settings"), QSize(540, 560), QSize(460, 400)}),
      m_view(new SettingsView(settings, platform, std::move(surroundings)))
{
    setContent(m_view);
}

void SettingsWindowController::applyTheme()
{
    m_view->applyTheme(look());
}

} // namespace orrinvale
