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
const auto settingsNamespace = QStringLiteral("org.freedesktop.appearance");
const auto settingsKey = QStringLiteral("color-scheme");
constexpr uint preferDark = 1; // 0 is no preference, 2 prefers light

QDBusMessage readCall()
{
    return QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"))
           << settingsNamespace << settingsKey;
}

} // namespace

LinuxAppearance::LinuxAppearance(const QDBusConnection& sessionBus, std::function<bool()> isPaletteDark,
                                 std::function<void(AppearanceChoice)> onApply)
    : m_bus(sessionBus), m_isPaletteDark(std::move(isPaletteDark)), m_onApply(std::move(onApply)),
      m_watcher(service, m_bus, QDBusServiceWatcher::WatchForRegistration),
      m_settingChanged(m_bus, service, path, interface, QStringLiteral("SettingChanged"),
                       [this](const QDBusMessage& message) {
                           const auto arguments = message.arguments();
                           if (arguments.value(0) == settingsNamespace && arguments.value(1) == settingsKey)
                               take(arguments.value(2));
                       })
{
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        callLater(m_bus, readCall(), this, [this](const auto& reply) { take(reply.arguments().value(0)); });
    });
}

void LinuxAppearance::prime(std::chrono::milliseconds bound)
{
    auto call = m_bus.asyncCall(readCall(), static_cast<int>(bound.count()));
    call.waitForFinished();
    if (!call.isError())
        take(call.reply().arguments().value(0));
}

void LinuxAppearance::take(const QVariant& colorScheme)
{
    bool isNumber = false;
    const auto scheme = unwrapped(colorScheme).toUInt(&isNumber);
    if (!isNumber)
        return;
    const auto before = std::exchange(m_systemIsDark, scheme == preferDark);
    if (before != m_systemIsDark)
        m_changes.set(m_changes.get() + 1);
}

void LinuxAppearance::apply(AppearanceChoice choice)
{
    m_choice = choice;
    m_onApply(choice);
}

bool LinuxAppearance::isDark() const
{
    if (m_choice != AppearanceChoice::FollowSystem)
        return m_choice == AppearanceChoice::Dark;
    return m_systemIsDark ? *m_systemIsDark : m_isPaletteDark();
}

Cancellable LinuxAppearance::observeChanges(std::function<void()> onChange)
{
    return m_changes.observe([onChange = std::move(onChange)](int) { onChange(); }, Deliver::ChangesOnly);
}

} // namespace orrinvale
