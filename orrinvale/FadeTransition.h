// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <functional>

namespace orrinvale
{

class MainQueue;

// Replaces what a view shows by fading it out, changing it, and fading it in. A new run takes over from a running one
// at the opacity it has reached. Main thread; ends with its owner.
class FadeTransition
{
public:
    static constexpr auto outMilliseconds = 160; // ease-in
    static constexpr auto inMilliseconds = 220;  // ease-out
    static constexpr auto stepMilliseconds = 20; // of both, a whole number

    // `setOpacity` gets values from 0 to 1.
    FadeTransition(MainQueue& queue, std::function<void(double)> setOpacity);

    // `change` runs once, when nothing is visible any more.
    void run(std::function<void()> change);
    bool isRunning() const { return static_cast<bool>(m_timer); }

private:
    void step();
    void setOpacity(double opacity);

    enum class Phase { out, in };

    MainQueue& m_queue;
    std::function<void(double)> m_setOpacity;
    std::function<void()> m_change;
    Phase m_phase = Phase::out;
    double m_opacity = 1;
    double m_from = 1; // the opacity at which this phase began
    int m_elapsed = 0; // milliseconds of this phase
    Cancellable m_timer;
};

// The timing curves of the two phases: 0 to 1 over 0 to 1.
double easeIn(double progress);
double easeOut(double progress);

} // namespace orrinvale
