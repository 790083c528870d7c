// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <functional>

namespace orrinvale
{

// What the process is to the system: an agent without a place in the Dock. Main thread.

// Until the token is dropped the system does not stretch the timers of an application that shows no window. It may
// still fall asleep.
[[nodiscard]] Cancellable stayResponsive();

// The windows come before those of all other applications, and get the keyboard; or they let both go.
void activateApplication();
void deactivateApplication();

// Whether the application runs in another process, which was asked to come forward.
bool handOverToOtherInstance();
// `onReopen` is called when the application is opened again, or another process of it asked. To be called once the
// event loop runs: AppKit installs a handler of its own at the start.
[[nodiscard]] Cancellable observeReopening(std::function<void()> onReopen);

} // namespace orrinvale
