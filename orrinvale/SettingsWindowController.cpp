// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsWindowController.h"

#include "orrinvale/AppPickerSheet.h"
#include "text/UserLocale.h"

namespace orrinvale
{

namespace
{

// Everything but the button that minimizes.
constexpr auto flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;

} // namespace

SettingsWindowController::SettingsWindowController(AppSettings& settings, const Platform& platform,
                                                   SettingsView::Surroundings surroundings)
    : WindowController(settings, platform, {QStringLiteral("orrinvale Settings"), QSize(540, 560), QSize(460, 400)}),
      m_view(new SettingsView(settings, platform, std::move(surroundings)))
{
    window().setWindowFlags(flags);
    setContent(m_view);
    m_view->onAddApp = [this] { showAppPicker(); };
}

SettingsWindowController::~SettingsWindowController()
{
    delete m_appPicker; // else it would be dismissed by the end of the window, and call this
}

AppPickerSheet* SettingsWindowController::appPicker() const
{
    return m_appPicker;
}

void SettingsWindowController::showAppPicker()
{
    if (m_appPicker)
        return;
    m_appPicker = new AppPickerSheet(platform(), userCollationLocale(), look(), m_view);
    m_appPicker->onAdd = [this](const CustomProcess& process) { m_view->addCustomProcess(process); };
    m_appPicker->onDismiss = [this] { m_appPicker.clear(); };
}

void SettingsWindowController::applyTheme()
{
    m_view->applyTheme(look());
    if (m_appPicker)
        m_appPicker->applyTheme(look());
}

} // namespace orrinvale
