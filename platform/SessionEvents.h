// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <functional>

namespace orrinvale
{

enum class ScreenPresence { awake, asleep };

// Whether the user can see the session: asleep while the display is off, the session locked or switched away.
class SessionEvents
{
public:
    virtual ~SessionEvents() = default;
    // Reports changes only, on the main thread. A session that is already asleep at the call is reported in a turn of
    // its own.
    [[nodiscard]] virtual Cancellable observe(std::function<void(ScreenPresence)> onChange) = 0;
};

} // namespace orrinvale
