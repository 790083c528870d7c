// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orrinvale
{

enum class ActivationPolicy { regular, accessory };

struct RunningApplication {
    std::optional<std::string> bundleIdentifier; // its own; UTF-8
    std::optional<std::string> localizedName;    // UTF-8
    std::optional<std::string> executablePath;   // UTF-8
    ActivationPolicy activationPolicy = ActivationPolicy::regular;
    std::optional<std::string> iconName{};  // in the icon theme, or a file's absolute path; UTF-8
    std::vector<std::string> alsoKnownAs{}; // further identifiers that it may be watched by; UTF-8

    bool isKnownAs(const std::string& identifier) const
    {
        return bundleIdentifier == identifier ||
               std::find(alsoKnownAs.begin(), alsoKnownAs.end(), identifier) != alsoKnownAs.end();
    }

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

// The user's running applications, from memory; a fresh look is taken in the background. Main thread.
class RunningApplications
{
public:
    virtual ~RunningApplications() = default;
    // As last seen, in the order of their start.
    virtual const std::vector<RunningApplication>& applications() const = 0;
    // Begins a fresh look unless one is under way.
    virtual void refresh() = 0;
    // `onChange` is called in a turn of its own after a fresh look found another list than before.
    [[nodiscard]] virtual Cancellable observeChanges(std::function<void()> onChange) = 0;
};

} // namespace orrinvale
