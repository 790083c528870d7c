// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Published.h"
#include "orrinvale/CustomProcess.h"
#include "orrinvale/WakeMode.h"
#include "platform/UserDefaults.h"

#include <array>

namespace orrinvale
{

class Appearance;
class ApplicationSupport;
class LocalCalendar;
class LoginItem;
struct Platform;

// The four themes; the raw value is the label and the stored text.
enum class AppTheme { light, dark, system, sakura };
inline constexpr std::array allAppThemes{AppTheme::light, AppTheme::dark, AppTheme::system, AppTheme::sakura};
std::string_view rawValue(AppTheme theme);
std::optional<AppTheme> appThemeFromRawValue(std::string_view text);

// Every preference of the user. Each value is read once from the user-defaults store at construction; assigning one
// publishes it and stores it at once, equal values too. Nothing is clamped. Main thread.
class AppSettings
{
public:
    AppSettings(const Platform& platform, const LocalCalendar& calendar);
    AppSettings(const AppSettings&) = delete;
    AppSettings& operator=(const AppSettings&) = delete;

    // The process's one instance, made at the first call from what `provide` was given; fatal without.
    static AppSettings& shared();
    static void provide(const Platform& platform, const LocalCalendar& calendar);

private:
    UserDefaults& m_defaults;
    LoginItem& m_loginItem;
    Appearance& m_appearance;
    const Clock& m_clock;
    const LocalCalendar& m_calendar;

public:
    Published<WakeMode> wakeMode;
    Published<bool> launchAtLogin;
    Published<AppTheme> appTheme;
    Published<bool> notificationsEnabled;
    Published<double> cpuSensitivity; // 0 relaxed … 1 sensitive
    Published<bool> pauseOnLowBattery;
    Published<std::int64_t> lowBatteryThreshold; // percent
    Published<bool> onlyWhenPluggedIn;
    Published<bool> cpuSignalEnabled;
    Published<bool> networkSignalEnabled;
    Published<bool> hasSeenOnboarding;
    Published<Instant> firstLaunchDate;
    Published<bool> hasShownFeedbackPrompt;
    Published<std::string> downloadsFolderPath; // absolute
    Published<std::vector<CustomProcess>> customProcesses;

    bool isDarkTheme() const;
    // Gives the whole application the appearance of the present theme.
    void applyTheme() const;

    // Percent; piecewise linear in the clamped sensitivity with a knee at 0.5.
    double cpuBusyThreshold() const;
    double cpuHighThreshold() const;
    double cpuSingleCoreThreshold() const;

    // Whole days by the user's calendar.
    std::int64_t daysSinceFirstLaunch() const;

private:
    template <typename T>
    T stored(const char* name, T fallback) const;
    Instant loadFirstLaunchDate();
    std::string loadDownloadsFolderPath(ApplicationSupport& support) const;
    std::vector<CustomProcess> loadCustomProcesses() const;
    template <typename T, typename Encode>
    void persist(Published<T>& property, const char* name, Encode encode);
    void persistAll();
    void registerLoginItem(bool wanted);
};

} // namespace orrinvale
