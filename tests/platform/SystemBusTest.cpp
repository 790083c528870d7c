// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/SystemBus.h"

#include "base/ThreadSerialQueue.h"
#include "platform/linux/BusProbe.h"
#include "platform/linux/LinuxPowerAssertions.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/platform/PowerService.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

void services(const char* verb, std::initializer_list<const char*> names)
{
    for (const auto* name : names)
        ASSERT_TRUE(bed({QString::fromLatin1(verb), QString::fromLatin1(name)}));
}

// As a connection of the moment sees them: one that was made earlier ends with its bus.
QStringList locks()
{
    const auto name = QStringLiteral("looking");
    const auto found =
        logindLocks(QStringLiteral("orrinvale"), QDBusConnection::connectToBus(QDBusConnection::SystemBus, name));
    QDBusConnection::disconnectFromBus(name);
    return found;
}

pid_t busProcess()
{
    std::ifstream pids(qEnvironmentVariable("BED").toStdString() + "/pids/system-bus");
    pid_t first = 0;
    pids >> first;
    return first;
}

TEST(SystemBus, OneThatWasStoppedAndStartedAgainIsConnectedToAnewAndTheLockTakenAgain)
{
    QtMainQueue queue;
    ThreadSerialQueue background(queue, "test");
    SystemBus bus(queue, background);
    LinuxPowerAssertions power(QDBusConnection(QString()), bus.connection(), queue);
    const auto renewals = bus.observe([&](const QDBusConnection& renewed) { power.useSystemBus(renewed); });
    const auto created = power.create("NoIdleSleepAssertion", 255, "Manual mode");
    ASSERT_EQ(created.status, 0);
    ASSERT_EQ(locks(), QStringList(QStringLiteral("idle Manual mode block")));
    services("stop", {"logind", "system-bus"});
    runEventsFor(200ms);
    EXPECT_LE(timeTaken([&] { power.create("NoIdleSleepAssertion", 255, "Meanwhile"); }), 1000ms);
    services("start", {"system-bus", "logind"});
    EXPECT_TRUE(waitFor([] { return locks() == QStringList(QStringLiteral("idle Manual mode block")); }, 10s))
        << locks().join(u'|').toStdString();
    power.release(created.id);
}

TEST(SystemBus, OneThatHangsAtTheStartDelaysItByTheBoundAndIsFoundWhenItAnswers)
{
    QtMainQueue queue;
    ThreadSerialQueue background(queue, "test");
    ASSERT_EQ(::kill(busProcess(), SIGSTOP), 0);
    std::unique_ptr<SystemBus> bus;
    EXPECT_LE(timeTaken([&] { bus = std::make_unique<SystemBus>(queue, background); }), 500ms);
    EXPECT_FALSE(bus->connection().isConnected());
    ::kill(busProcess(), SIGCONT);
    bool isConnected = false;
    const auto renewals = bus->observe([&](const QDBusConnection& renewed) { isConnected = renewed.isConnected(); });
    EXPECT_TRUE(waitFor([&] { return isConnected; }, 6s));
}

TEST(BusProbe, TellsWhoAnswersWhoHangsAndWhoIsNotThere)
{
    const auto probe = [](const std::string& address) { return probeBus(address, QDeadlineTimer(300ms)); };
    EXPECT_EQ(probe(systemBusAddress()), BusAnswer::answers);
    ::kill(busProcess(), SIGSTOP);
    EXPECT_EQ(probe(systemBusAddress()), BusAnswer::hangs);
    EXPECT_EQ(probe("tcp:host=localhost;" + systemBusAddress()), BusAnswer::answers); // not looked at
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(probeBus(systemBusAddress(), QDeadlineTimer(0)), BusAnswer::hangs) << i;
    ::kill(busProcess(), SIGCONT);
    EXPECT_TRUE(waitFor([&] { return probe(systemBusAddress()) == BusAnswer::answers; }));
    EXPECT_EQ(probe(""), BusAnswer::absent);
    EXPECT_EQ(probe("unix:path=/nonexistent,guid=x"), BusAnswer::absent);
    EXPECT_EQ(probe("unix:path=/dev/null/no-bus"), BusAnswer::absent);
    EXPECT_EQ(probe("unix:abstract=nobody%2fhere%"), BusAnswer::absent);
    EXPECT_EQ(probe("unix:path=" + std::string(500, 'x')), BusAnswer::absent);
    EXPECT_EQ(probe("unix:"), BusAnswer::answers);
}

} // namespace

} // namespace orrinvale
