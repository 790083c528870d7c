// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/Compositing.h"
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

LinuxPlatform::LinuxPlatform(const Windows& windows)
    : m_parts(windows), m_filePanels(m_parts.sessionBus, windows.filePanels)
{
}

LinuxPlatform::Parts::Parts(const Windows& windows)
    : appearance(
          sessionBus,
          {.isPaletteDark = windows.isPaletteDark, .isComposited = isCompositing, .apply = windows.applyAppearance}),
      installedApplications(userEntryFolders()), loginItem(applicationSupport.configDirectory() / "autostart",
                                                           QCoreApplication::applicationFilePath().toStdString()),
      userDefaults(applicationSupport.configDirectory() / "orrinvale" / "settings.json"),
      userNotifications(sessionBus, notificationRecord(applicationSupport)),
      systemBusRenewals(systemBus.observe([this](const QDBusConnection& bus) {
          powerAssertions.useSystemBus(bus);
          powerSources.useSystemBus(bus);
          sessionEvents.useSystemBus(bus);
      }))
{
}

void LinuxPlatform::prime()
{
    const QDeadlineTimer deadline(primingBound);
    m_parts.runningApplications.refresh(); // goes on beside the questions below
    m_parts.powerSources.prime(deadline);
    m_parts.appearance.prime(deadline);
    m_parts.runningApplications.waitForRefresh(std::chrono::milliseconds(millisecondsLeft(deadline)));
}

void LinuxPlatform::flush()
{
    m_parts.userNotifications.flush(QDeadlineTimer(flushingBound));
}

} // namespace orrinvale
