// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "base/SerialQueue.h"
#include "platform/PowerSources.h"
#include "platform/linux/DBus.h"

#include <memory>

namespace orrinvale
{

class MainQueue;

// UPower's display device, which adds up the batteries of a laptop, kept from its change signals. While UPower is not
// on the bus, /sys/class/power_supply, read in the background. Main thread.
class LinuxPowerSources final : public QObject, public PowerSources
{
    Q_OBJECT

public:
    LinuxPowerSources(const QDBusConnection& systemBus, MainQueue& queue, SerialQueue& background,
                      std::string sysfsFolder = "/sys/class/power_supply");

    // The system bus was stopped and started again.
    void useSystemBus(const QDBusConnection& systemBus);
    // Waits for the first real value, at most until `deadline`.
    void prime(const QDeadlineTimer& deadline);

    std::optional<PowerSource> first() override;

private:
    void listen();
    void ask();
    void takeDevice(const QVariantMap& properties);
    void takeManager(const QVariantMap& properties);
    void forget();
    void readSysfsLater();

    QDBusConnection m_bus;
    MainQueue& m_queue;
    SerialQueue& m_background;
    std::string m_sysfsFolder;
    std::optional<bool> m_isPresent, m_onBattery;
    std::optional<double> m_percentage;
    std::optional<PowerSource> m_sysfs;
    bool m_isReadingSysfs = false;
    QDBusServiceWatcher m_watcher;
    std::unique_ptr<DBusSignal> m_deviceChanges, m_managerChanges;
    Lifetime m_lifetime;
};

// What the folder tells: the first battery of the machine itself, and whether external power is there. Thread-safe.
std::optional<PowerSource> powerSourceFromSysfs(const std::string& folder);

} // namespace orrinvale
