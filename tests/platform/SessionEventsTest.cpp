// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSessionEvents.h"

#include "platform/qt/QtMainQueue.h"
#include "tests/platform/WaitFor.h"

#include <gtest/gtest.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// Two screen savers, played on connections of their own.
struct SessionEventsTest : testing::Test {
    static QDBusConnection connect(const char* name)
    {
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QString::fromLatin1(name));
        EXPECT_TRUE(bus.registerService(QString::fromLatin1(name)));
        return bus;
    }
    static void say(const QDBusConnection& saver, const char* name, bool active)
    {
        auto signal =
            QDBusMessage::createSignal(QStringLiteral("/"), QString::fromLatin1(name), QStringLiteral("ActiveChanged"));
        saver.send(signal << active);
    }
    ~SessionEventsTest() override
    {
        for (const auto* name : {gnome, freedesktop})
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }
    bool reportsBecome(const std::vector<ScreenPresence>& expected)
    {
        return waitFor([&] { return reports == expected; }, 2s);
    }

    static constexpr auto gnome = "org.gnome.ScreenSaver";
    static constexpr auto freedesktop = "org.freedesktop.ScreenSaver";
    QtMainQueue queue;
    QDBusConnection first = connect(gnome);
    QDBusConnection second = connect(freedesktop);
    LinuxSessionEvents events{QDBusConnection::sessionBus(), QDBusConnection::systemBus(), queue};
    std::vector<ScreenPresence> reports;
    Cancellable token = events.observe([this](ScreenPresence presence) { reports.push_back(presence); });
};

TEST_F(SessionEventsTest, SaversAreMergedAndOnlyChangesAreReported)
{
    say(first, gnome, true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::Asleep}));
    say(second, freedesktop, true);
    say(first, gnome, false);
    runEventsFor(100ms);
    EXPECT_TRUE(reportsBecome({ScreenPresence::Asleep}));
    say(second, freedesktop, false);
    EXPECT_TRUE(reportsBecome({ScreenPresence::Asleep, ScreenPresence::Awake}));
}

TEST_F(SessionEventsTest, ASaverThatGoesTakesItsWordWithIt)
{
    say(first, gnome, true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::Asleep}));
    first.unregisterService(QString::fromLatin1(gnome));
    EXPECT_TRUE(reportsBecome({ScreenPresence::Asleep, ScreenPresence::Awake}));
}

TEST_F(SessionEventsTest, ASessionAlreadyAsleepIsReportedInATurnOfItsOwn)
{
    say(first, gnome, true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::Asleep}));
    std::vector<ScreenPresence> late;
    const auto other = events.observe([&](ScreenPresence presence) { late.push_back(presence); });
    EXPECT_TRUE(late.empty());
    EXPECT_TRUE(waitFor([&] { return late == std::vector{ScreenPresence::Asleep}; }));
}

} // namespace

} // namespace orrinvale
