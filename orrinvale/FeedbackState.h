// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"

namespace orrinvale
{

// How far the form is. Shared by the view, which shows it, and the coordinator, which learns of it. Main thread.
struct FeedbackState {
    enum class Overlay { loading, failed, none };

    Published<bool> isLoading{true};
    Published<bool> loadFailed{false};

    // What lies over the form. A failure stays: there is no retry.
    Overlay overlay() const
    {
        if (loadFailed.get())
            return Overlay::failed;
        return isLoading.get() ? Overlay::loading : Overlay::none;
    }
};

} // namespace orrinvale
