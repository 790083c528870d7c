// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxAppearance.h"

#include <QDBusPendingCall>
#include <QDBusPendingReply>

namespace orrinvale
{

namespace
{

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
constexpr uint preferDark = 1; // 0 is no preference, 2 prefers light

struct Setting {
    QString inNamespace;
    QString key;
    friend bool operator==(const Setting&, const Setting&) = default;
};
const Setting colorScheme{QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme")};
// Neither desktop's portal had a common name for it yet: GNOME's is a boolean, KDE's a factor on every duration.
const Setting gnomeAnimations{QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations")};
const Setting kdeAnimations{QStringLiteral("org.kde.kdeglobals.KDE"), QStringLiteral("AnimationDurationFactor")};

QDBusMessage readCall(const Setting& setting)
{
    return QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"))
           << setting.inNamespace << setting.key;
}

} // namespace

LinuxAppearance::LinuxAppearance(const QDBusConnection& sessionBus, Windows windows)
    : m_bus(sessionBus), m_windows(std::move(windows)),
      m_watcher(service, m_bus, QDBusServiceWatcher::WatchForRegistration),
      m_settingChanged(m_bus, service, path, interface, QStringLiteral("SettingChanged"),
                       [this](const QDBusMessage& message) {
                           take(argumentOf<QString>(message).value_or(QString()),
                                argumentOf<QString>(message, 1).value_or(QString()), message.arguments().value(2));
                       })
{
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    ask();
}

void LinuxAppearance::ask()
{
    for (const auto& setting : {colorScheme, gnomeAnimations, kdeAnimations})
        callLater(m_bus, readCall(setting), this, [this, setting](const auto& reply) {
            take(setting.inNamespace, setting.key, reply.arguments().value(0));
        });
}

void LinuxAppearance::take(const QString& settingsNamespace, const QString& key, const QVariant& value)
{
    const Setting setting{settingsNamespace, key};
    if (setting == colorScheme)
        takeColorScheme(value);
    if (const auto enabled = valueOf<bool>(value); setting == gnomeAnimations && enabled)
        m_reducesMotion = !*enabled;
    if (setting == kdeAnimations)
        takeDurationFactor(value);
}

// A number or its text, by the portal's version.
void LinuxAppearance::takeDurationFactor(const QVariant& value)
{
    auto isNumber = true;
    const auto text = valueOf<QString>(value);
    const auto number = text ? std::optional(text->toDouble(&isNumber)) : valueOf<double>(value);
    if (number && isNumber)
        m_reducesMotion = *number == 0;
}

void LinuxAppearance::prime(const QDeadlineTimer& deadline)
{
    auto call = m_bus.asyncCall(readCall(colorScheme), millisecondsLeft(deadline));
    call.waitForFinished();
    if (!call.isError())
        takeColorScheme(call.reply().arguments().value(0));
}

void LinuxAppearance::takeColorScheme(const QVariant& value)
{
    const auto scheme = valueOf<uint>(value);
    if (!scheme)
        return;
    const auto before = std::exchange(m_systemIsDark, *scheme == preferDark);
    if (before == m_systemIsDark)
        return;
    applyToWindows();
    m_changes.set(m_changes.get() + 1);
}

void LinuxAppearance::apply(AppearanceChoice choice)
{
    m_choice = choice;
    applyToWindows();
}

void LinuxAppearance::applyToWindows()
{
    const auto isFollowing = m_choice == AppearanceChoice::followSystem;
    m_windows.apply(isFollowing ? m_systemIsDark : m_choice == AppearanceChoice::dark);
}

bool LinuxAppearance::isDark() const
{
    if (m_choice != AppearanceChoice::followSystem)
        return m_choice == AppearanceChoice::dark;
    return m_systemIsDark ? *m_systemIsDark : m_windows.isPaletteDark();
}

Cancellable LinuxAppearance::observeChanges(std::function<void()> onChange)
{
    return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
}

} // namespace orrinvale
