// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/WindowController.h"

namespace orrinvale
{

class OnboardingView;

// Explains the application before its first use. Its button is the user's only way out of the window; ending the
// application closes it too, and then it is back at the next start.
class OnboardingWindowController final : public WindowController
{
    Q_OBJECT

public:
    OnboardingWindowController(AppSettings& settings, const Platform& platform);

    void showWindow() override;
    OnboardingView& view() const { return *m_view; }

private:
    void applyTheme() override;
    void finish();

    OnboardingView* m_view; // the window's
};

} // namespace orrinvale
