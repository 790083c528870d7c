// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerSources.h"

#include "base/AtomicFile.h"
#include "base/MainQueue.h"

#include <charconv>
#include <cmath>
#include <future>

#include <QDBusPendingCall>
#include <QDBusPendingReply>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

const auto service = QStringLiteral("org.freedesktop.UPower");
const auto managerPath = QStringLiteral("/org/freedesktop/UPower");
const auto devicePath = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");
const auto managerInterface = QStringLiteral("org.freedesktop.UPower");
const auto deviceInterface = QStringLiteral("org.freedesktop.UPower.Device");
const auto propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const auto propertiesChanged = QStringLiteral("PropertiesChanged");

constexpr auto onMains = "AC Power";
constexpr auto onBattery = "Battery Power";
// UPower's percentage is a fraction: hundredths of a percent keep 19.6 apart from 19.
constexpr std::int64_t fullCapacity = 10'000;

std::string attribute(const fs::path& device, const char* name)
{
    auto text = readWholeFile(device / name).value_or("");
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

std::optional<std::int64_t> capacityOf(const fs::path& battery)
{
    const auto text = attribute(battery, "capacity");
    std::int64_t percent = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), percent);
    if (error != std::errc{} || percent < 0 || percent > 100)
        return std::nullopt;
    return percent * fullCapacity / 100;
}

enum class External { unknown, absent, present };

// A battery that neither charges nor discharges does not tell where the power comes from: the adapters do, where there
// are any.
const char* stateOf(const std::string& batteryStatus, External external)
{
    if (external == External::present || batteryStatus == "Charging")
        return onMains;
    return external == External::absent || batteryStatus == "Discharging" ? onBattery : onMains;
}

} // namespace

std::optional<PowerSource> powerSourceFromSysfs(const std::string& folder)
{
    std::optional<PowerSource> battery;
    std::string status;
    auto external = External::unknown;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
        const auto& device = each->path();
        const auto type = attribute(device, "type");
        if ((type == "Mains" || type == "USB") && external != External::present)
            external = attribute(device, "online") == "1" ? External::present : External::absent;
        const auto isOurs = type == "Battery" && attribute(device, "scope") != "Device";
        if (isOurs && !battery && attribute(device, "present") != "0") {
            battery = PowerSource{std::nullopt, capacityOf(device), fullCapacity};
            status = attribute(device, "status");
        }
    }
    if (battery)
        battery->state = stateOf(status, external);
    return battery;
}

LinuxPowerSources::LinuxPowerSources(const QDBusConnection& systemBus, MainQueue& queue, SerialQueue& background,
                                     std::string sysfsFolder)
    : m_bus(systemBus), m_queue(queue), m_background(background), m_sysfsFolder(std::move(sysfsFolder)),
      m_watcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    listen();
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
                     [this](const QString&, const QString&, const QString& owner) {
                         forget();
                         if (!owner.isEmpty())
                             ask();
                     });
}

void LinuxPowerSources::listen()
{
    const auto signal = [this](const QString& path, void (LinuxPowerSources::*take)(const QVariantMap&)) {
        return std::make_unique<DBusSignal>(m_bus, service, path, propertiesInterface, propertiesChanged,
                                            [this, take](const auto& message) { (this->*take)(mapOf(message, 1)); });
    };
    m_deviceChanges = signal(devicePath, &LinuxPowerSources::takeDevice);
    m_managerChanges = signal(managerPath, &LinuxPowerSources::takeManager);
}

void LinuxPowerSources::useSystemBus(const QDBusConnection& systemBus)
{
    m_bus = systemBus;
    m_watcher.setConnection(m_bus);
    forget();
    listen();
    ask();
}

void LinuxPowerSources::ask()
{
    callLater(m_bus, getAllCall(service, devicePath, deviceInterface), this,
              [this](const auto& reply) { takeDevice(mapOf(reply)); });
    callLater(m_bus, getAllCall(service, managerPath, managerInterface), this,
              [this](const auto& reply) { takeManager(mapOf(reply)); });
}

// /sys is read beside the questions: a UPower that lets all the time pass leaves its word.
void LinuxPowerSources::prime(const QDeadlineTimer& deadline)
{
    const auto read = std::make_shared<std::promise<std::optional<PowerSource>>>();
    auto result = read->get_future();
    m_background.post([read, folder = m_sysfsFolder] { read->set_value(powerSourceFromSysfs(folder)); });
    const auto bound = millisecondsLeft(deadline);
    auto device = m_bus.asyncCall(getAllCall(service, devicePath, deviceInterface), bound);
    auto manager = m_bus.asyncCall(getAllCall(service, managerPath, managerInterface), bound);
    device.waitForFinished();
    manager.waitForFinished();
    takeDevice(mapOf(device.reply()));
    takeManager(mapOf(manager.reply()));
    if (m_onBattery)
        return;
    ask(); // a UPower that is slow to start answers later
    if (result.wait_for(std::chrono::milliseconds(millisecondsLeft(deadline))) == std::future_status::ready)
        m_sysfs = result.get();
}

void LinuxPowerSources::takeDevice(const QVariantMap& properties)
{
    if (const auto isPresent = memberOf<bool>(properties, QStringLiteral("IsPresent")))
        m_isPresent = isPresent;
    const auto percentage = memberOf<double>(properties, QStringLiteral("Percentage"));
    if (percentage && *percentage >= 0 && *percentage <= 100) // which no NaN is
        m_percentage = percentage;
}

void LinuxPowerSources::takeManager(const QVariantMap& properties)
{
    if (const auto isOnBattery = memberOf<bool>(properties, QStringLiteral("OnBattery")))
        m_onBattery = isOnBattery;
}

void LinuxPowerSources::forget()
{
    m_isPresent.reset();
    m_onBattery.reset();
    m_percentage.reset();
    readSysfsLater();
}

void LinuxPowerSources::readSysfsLater()
{
    if (m_isReadingSysfs)
        return;
    m_isReadingSysfs = true;
    const auto finish = m_lifetime.unlessGone([this](const std::optional<PowerSource>& source) {
        m_isReadingSysfs = false;
        m_sysfs = source;
    });
    m_background.post([&queue = m_queue, folder = m_sysfsFolder, finish] {
        queue.post([finish, source = powerSourceFromSysfs(folder)] { finish(source); });
    });
}

std::optional<PowerSource> LinuxPowerSources::first()
{
    if (!m_onBattery || !m_isPresent || !m_percentage) {
        readSysfsLater();
        return m_sysfs;
    }
    if (!*m_isPresent)
        return std::nullopt;
    return PowerSource{*m_onBattery ? onBattery : onMains, std::llround(*m_percentage * 100), fullCapacity};
}

} // namespace orrinvale
