// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppSettings.h"

#include "base/ConsoleLine.h"
#include "base/Fatal.h"
#include "platform/Appearance.h"
#include "platform/ApplicationSupport.h"
#include "platform/LoginItem.h"
#include "platform/Platform.h"
#include "text/LocalCalendar.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace orrinvale
{

namespace
{

std::string keyOf(const char* name)
{
    return std::string("orrinvale.") + name;
}

// A value as a property's type. Whole numbers read as doubles and the other way round; a boolean is no number.
template <typename T>
std::optional<T> valueAs(const std::optional<DefaultsValue>& value)
{
    if (!value)
        return std::nullopt;
    if (const auto* exact = std::get_if<T>(&*value))
        return *exact;
    if constexpr (std::is_same_v<T, double>) {
        if (const auto* whole = std::get_if<std::int64_t>(&*value))
            return static_cast<double>(*whole);
    } else if constexpr (std::is_same_v<T, std::int64_t>) {
        const auto* number = std::get_if<double>(&*value);
        if (number && std::trunc(*number) == *number && std::abs(*number) < 0x1p53)
            return static_cast<std::int64_t>(*number);
    }
    return std::nullopt;
}

struct Knee {
    double atZero, atHalf, atOne; // percent
};

double threshold(double sensitivity, Knee knee)
{
    const auto s = sensitivity > 0 ? std::min(sensitivity, 1.0) : 0.0;
    return s <= 0.5 ? knee.atZero + (knee.atHalf - knee.atZero) * 2 * s
                    : knee.atHalf + (knee.atOne - knee.atHalf) * 2 * (s - 0.5);
}

struct Provided {
    const Platform* platform = nullptr;
    const LocalCalendar* calendar = nullptr;
};

Provided& provided()
{
    static Provided values;
    return values;
}

constexpr auto identity = [](const auto& value) -> DefaultsValue { return value; };
constexpr auto asRawValue = [](auto value) -> DefaultsValue { return std::string(rawValue(value)); };

} // namespace

std::string_view rawValue(AppTheme theme)
{
    switch (theme) {
    case AppTheme::light:
        return "Light";
    case AppTheme::dark:
        return "Dark";
    case AppTheme::system:
        return "System";
    case AppTheme::sakura:
        return "Sakura";
    }
    return {};
}

std::optional<AppTheme> appThemeFromRawValue(std::string_view text)
{
    for (const auto theme : allAppThemes) {
        if (rawValue(theme) == text)
            return theme;
    }
    return std::nullopt;
}

void AppSettings::provide(const Platform& platform, const LocalCalendar& calendar)
{
    provided() = {&platform, &calendar};
}

AppSettings& AppSettings::shared()
{
    if (!provided().platform)
        fatal("the settings were asked for before a platform was provided");
    static AppSettings settings(*provided().platform, *provided().calendar);
    return settings;
}

AppSettings::AppSettings(const Platform& platform, const LocalCalendar& calendar)
    : m_defaults(platform.userDefaults), m_loginItem(platform.loginItem), m_appearance(platform.appearance),
      m_clock(platform.clock), m_calendar(calendar),
      wakeMode(wakeModeFromRawValue(stored<std::string>("wakeMode", {})).value_or(WakeMode::smart)),
      launchAtLogin(stored("launchAtLogin", false)),
      appTheme(appThemeFromRawValue(stored<std::string>("appTheme", {})).value_or(AppTheme::light)),
      notificationsEnabled(stored("notificationsEnabled", true)), cpuSensitivity(stored("cpuSensitivity", 0.5)),
      pauseOnLowBattery(stored("pauseOnLowBattery", true)),
      lowBatteryThreshold(stored<std::int64_t>("lowBatteryThreshold", 20)),
      onlyWhenPluggedIn(stored("onlyWhenPluggedIn", false)), cpuSignalEnabled(stored("cpuSignalEnabled", true)),
      networkSignalEnabled(stored("networkSignalEnabled", true)), hasSeenOnboarding(stored("hasSeenOnboarding", false)),
      firstLaunchDate(loadFirstLaunchDate()), hasShownFeedbackPrompt(stored("hasShownFeedbackPrompt", false)),
      downloadsFolderPath(loadDownloadsFolderPath(platform.applicationSupport)), customProcesses(loadCustomProcesses())
{
    persistAll();
}

template <typename T>
T AppSettings::stored(const char* name, T fallback) const
{
    return valueAs<T>(m_defaults.object(keyOf(name))).value_or(std::move(fallback));
}

Instant AppSettings::loadFirstLaunchDate()
{
    const auto key = keyOf("firstLaunchDate");
    if (const auto known = valueAs<Instant>(m_defaults.object(key)))
        return *known;
    const auto now = m_clock.now();
    m_defaults.set(key, now);
    return now;
}

std::string AppSettings::loadDownloadsFolderPath(ApplicationSupport& support) const
{
    if (const auto path = valueAs<std::string>(m_defaults.object(keyOf("downloadsFolderPath"))))
        return *path;
    return support.downloadsDirectory().value_or(support.homeDirectory() / "Downloads").string();
}

std::vector<CustomProcess> AppSettings::loadCustomProcesses() const
{
    const auto data = valueAs<DefaultsData>(m_defaults.object(keyOf("customProcesses")));
    return data ? decodeCustomProcesses(data->bytes).value_or(std::vector<CustomProcess>{})
                : std::vector<CustomProcess>{};
}

template <typename T, typename Encode>
void AppSettings::persist(Published<T>& property, const char* name, Encode encode)
{
    property.afterStore([this, name, encode](const T& value) { m_defaults.set(keyOf(name), encode(value)); });
}

void AppSettings::persistAll()
{
    persist(wakeMode, "wakeMode", asRawValue);
    persist(notificationsEnabled, "notificationsEnabled", identity);
    persist(cpuSensitivity, "cpuSensitivity", identity);
    persist(pauseOnLowBattery, "pauseOnLowBattery", identity);
    persist(lowBatteryThreshold, "lowBatteryThreshold", identity);
    persist(onlyWhenPluggedIn, "onlyWhenPluggedIn", identity);
    persist(cpuSignalEnabled, "cpuSignalEnabled", identity);
    persist(networkSignalEnabled, "networkSignalEnabled", identity);
    persist(hasSeenOnboarding, "hasSeenOnboarding", identity);
    persist(firstLaunchDate, "firstLaunchDate", identity);
    persist(hasShownFeedbackPrompt, "hasShownFeedbackPrompt", identity);
    persist(downloadsFolderPath, "downloadsFolderPath", identity);
    persist(customProcesses, "customProcesses",
            [](const auto& list) -> DefaultsValue { return DefaultsData{encodeCustomProcesses(list)}; });
    appTheme.afterStore([this](AppTheme theme) {
        m_defaults.set(keyOf("appTheme"), asRawValue(theme));
        applyTheme();
    });
    launchAtLogin.afterStore([this](bool wanted) {
        m_defaults.set(keyOf("launchAtLogin"), wanted);
        registerLoginItem(wanted);
    });
}

void AppSettings::registerLoginItem(bool wanted)
{
    // The user's choice stays as it is when the system refuses.
    const auto error = wanted ? m_loginItem.registerApplication() : m_loginItem.unregisterApplication();
    if (error)
        consoleLine("AppSettings", "Launch at login failed — " + *error);
}

bool AppSettings::isDarkTheme() const
{
    const auto theme = appTheme.get();
    return theme == AppTheme::dark || (theme == AppTheme::system && m_appearance.isDark());
}

void AppSettings::applyTheme() const
{
    const auto theme = appTheme.get();
    m_appearance.apply(theme == AppTheme::system ? AppearanceChoice::followSystem
                       : theme == AppTheme::dark ? AppearanceChoice::dark
                                                 : AppearanceChoice::light);
}

double AppSettings::cpuBusyThreshold() const
{
    return threshold(cpuSensitivity.get(), {70, 40, 15});
}

double AppSettings::cpuHighThreshold() const
{
    return threshold(cpuSensitivity.get(), {95, 70, 40});
}

double AppSettings::cpuSingleCoreThreshold() const
{
    return threshold(cpuSensitivity.get(), {85, 50, 25});
}

std::int64_t AppSettings::daysSinceFirstLaunch() const
{
    return m_calendar.wholeDays(firstLaunchDate.get(), m_clock.now());
}

} // namespace orrinvale
