// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <functional>

namespace orrinvale
{

// Tells when the system's time zone may have become another; which one it is, calendars know. Main thread.
class TimeZone
{
public:
    virtual ~TimeZone() = default;
    // `onChange` is called in a turn of its own, sometimes though nothing changed.
    [[nodiscard]] virtual Cancellable observeChanges(std::function<void()> onChange) = 0;
};

} // namespace orrinvale
