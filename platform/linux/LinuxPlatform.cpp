// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/DesktopEntry.h"

#include <QCoreApplication>

#include <chrono>

namespace orrinvale
{

using namespace std::chrono_literals;

constexpr auto primingBound = 100ms; // for all of them together
constexpr auto flushingBound = 200ms;

static std::optional<std::filesystem::path> notificationRecord(LinuxApplicationSupport& support)
{
    const auto folder = support.runtimeDirectory();
    return folder ? std::optional(*folder / "orrinvale.notifications") : std::nullopt;
}

LinuxPlatform::LinuxPlatform(Desktop desktop)
    : m_sessionBus(QDBusConnection::sessionBus()),
      m_appearance(m_sessionBus, {std::move(desktop.isPaletteDark), std::move(desktop.isComposited),
                                  std::move(desktop.applyAppearance)}),
      m_installedApplications(userEntryFolders()),
      m_loginItem(m_support.configDirectory() / "autostart", QCoreApplication::applicationFilePath().toStdString()),
      m_mediaDevices(m_queue, m_background), m_powerAssertions(m_sessionBus, m_systemBus.connection(), m_queue),
      m_powerSources(m_systemBus.connection(), m_queue, m_background), m_processStatus(m_queue, m_background),
      m_runningApplications(m_queue, m_background, m_applicationFiles),
      m_sessionEvents(m_sessionBus, m_systemBus.connection(), m_queue, m_background), m_timeZone(m_queue),
      m_userDefaults(m_support.configDirectory() / "orrinvale" / "settings.json"),
      m_userNotifications(m_sessionBus, notificationRecord(m_support)),
      m_systemBusRenewals(m_systemBus.observe([this](const QDBusConnection& bus) {
          m_powerAssertions.useSystemBus(bus);
          m_powerSources.useSystemBus(bus);
          m_sessionEvents.useSystemBus(bus);
      }))
{
}

void LinuxPlatform::prime()
{
    const QDeadlineTimer deadline(primingBound);
    m_runningApplications.refresh(); // goes on beside the questions below
    m_powerSources.prime(deadline);
    m_appearance.prime(deadline);
    m_runningApplications.waitForRefresh(std::chrono::milliseconds(millisecondsLeft(deadline)));
}

void LinuxPlatform::flush()
{
    m_userNotifications.flush(QDeadlineTimer(flushingBound));
}

Platform LinuxPlatform::platform()
{
    return {m_queue,
            m_serialQueues,
            m_background,
            m_applicationFiles,
            m_clock,
            m_support,
            m_appearance,
            m_cpuCounters,
            m_folderWatcher,
            m_installedApplications,
            m_loginItem,
            m_mediaDevices,
            m_networkCounters,
            m_powerAssertions,
            m_powerSources,
            m_processStatus,
            m_runningApplications,
            m_sessionEvents,
            m_timeZone,
            m_userDefaults,
            m_userNotifications};
}

} // namespace orrinvale
