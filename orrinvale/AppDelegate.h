// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "orrinvale/WakeState.h"

#include <memory>

namespace orrinvale
{

class AppSettings;
class ApplicationInterface;
class LocalCalendar;
class WakeEngine;
struct Platform;

// The composition root: builds the application at launch, tells the user when the machine starts and stops being kept
// awake, and ends everything at termination. Main thread.
class AppDelegate
{
public:
    // A cooldown counts as not awake: the user hears once, when it begins.
    enum class StateCategory { idle, awake };
    static StateCategory categoryOf(const WakeState& state);

    AppDelegate(const Platform& platform, AppSettings& settings, const LocalCalendar& calendar,
                ApplicationInterface& interface);
    ~AppDelegate();

    void applicationDidFinishLaunching();
    // Runs once; later calls do nothing.
    void applicationWillTerminate();

    // Fatal before the launch.
    WakeEngine& wakeEngine();

private:
    void stateChanged(const WakeState& state);
    void tellOnceThatNothingIsHeld();
    // Asks for feedback, once ever, when the user has had the application for a while.
    void checkFeedback();

    const Platform& m_platform;
    AppSettings& m_settings;
    const LocalCalendar& m_calendar;
    ApplicationInterface& m_interface;
    std::unique_ptr<WakeEngine> m_wakeEngine;
    StateCategory m_lastCategory = StateCategory::idle;
    bool m_showedOnboarding = false;
    bool m_toldThatNothingIsHeld = false;
    bool m_hasTerminated = false;
    Cancellables m_cancellables;
    Cancellable m_feedbackCheckTimer;
};

} // namespace orrinvale
