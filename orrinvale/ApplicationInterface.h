// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

class WakeEngine;

// What the user sees of the application; the delegate says when. Main thread.
class ApplicationInterface
{
public:
    virtual ~ApplicationInterface() = default;
    // The item in the desktop's tray, from now until the end. `engine` outlives it.
    virtual void showStatusItem(WakeEngine& engine) = 0;
    // The window that explains the application, until the user has seen it.
    virtual void showOnboarding() = 0;
    // Whether there is a form to ask for feedback with: it may not be installed, or not any more.
    virtual bool canShowFeedback() const = 0;
    // The window that asks for feedback.
    virtual void showFeedback() = 0;
};

} // namespace orrinvale
