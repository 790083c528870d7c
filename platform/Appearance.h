// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <functional>

namespace orrinvale
{

enum class AppearanceChoice { light, dark, followSystem };

// The light or dark appearance of the whole application. Main thread.
class Appearance
{
public:
    virtual ~Appearance() = default;
    virtual void apply(AppearanceChoice choice) = 0;
    // Whether the appearance in effect is the dark one; from memory.
    virtual bool isDark() const = 0;
    // Whether the desktop asks for interfaces that do not move; from memory.
    virtual bool reducesMotion() const = 0;
    // Whether windows may have translucent parts: something composes them.
    virtual bool isComposited() const = 0;
    // Called in a turn of its own after the desktop switched between light and dark.
    [[nodiscard]] virtual Cancellable observeChanges(std::function<void()> onChange) = 0;
};

} // namespace orrinvale
