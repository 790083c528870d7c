// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/OnboardingWindowController.h"

#include "orrinvale/AppSettings.h"
#include "orrinvale/OnboardingView.h"

#include <QWidget>

namespace orrinvale
{

OnboardingWindowController::OnboardingWindowController(AppSettings& settings, const Platform& platform)
    : WindowController(
          settings, platform,
          {QStringLiteral("Welcome to orrinvale"), QSize(480, 520), QSize(480, 520), Closing::byProgramAlone}),
      m_view(new OnboardingView)
{
    setContent(m_view);
    m_view->onDone = [this] { finish(); };
}

void OnboardingWindowController::showWindow()
{
    WindowController::showWindow();
    m_view->setFocus(Qt::OtherFocusReason);
}

void OnboardingWindowController::applyTheme()
{
    m_view->applyTheme(look());
}

void OnboardingWindowController::finish()
{
    settings().hasSeenOnboarding.set(true);
    window().hide();
}

} // namespace orrinvale
