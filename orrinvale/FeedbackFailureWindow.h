// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/WindowController.h"

namespace orrinvale
{

class FeedbackView;

// The feedback window of the application itself: it looks like the one with the form, and says that the form could not
// be loaded.
class FeedbackFailureWindow final : public WindowController
{
    Q_OBJECT

public:
    FeedbackFailureWindow(AppSettings& settings, const Platform& platform);

private:
    void applyTheme() override;

    FeedbackView* m_view; // the window's
};

} // namespace orrinvale
