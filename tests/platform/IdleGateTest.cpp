// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerAssertions.h"

#include "platform/qt/QtMainQueue.h"
#include "tests/platform/PowerService.h"

#include <gtest/gtest.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

// gnome_desktop.py
struct Desktop : ScriptedService {
    explicit Desktop(const char* options)
        : ScriptedService(QStringLiteral(GNOME_DESKTOP), QString::fromLatin1(options).split(u' ', Qt::SkipEmptyParts))
    {
    }
    void tell(const char* line)
    {
        write(line);
        EXPECT_TRUE(waitFor([&] { return log().contains(QStringLiteral("did ") + QString::fromLatin1(line)); }));
    }
    int count(const char* line) { return static_cast<int>(log().count(QString::fromLatin1(line))); }
    bool becomes(const char* line, int times)
    {
        return waitFor([&] { return count(line) == times; }, 3s);
    }
};

bool userCanSuspend()
{
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Suspend"));
    return QDBusConnection::systemBus().call(call << true).type() == QDBusMessage::ReplyMessage;
}

struct IdleGateTest : testing::Test {
    void start(const char* options = "")
    {
        desktop = std::make_unique<Desktop>(options);
        power =
            std::make_unique<LinuxPowerAssertions>(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), queue);
    }
    PowerAssertions::Created create() { return power->create("NoIdleSleepAssertion", 255, "Manual mode"); }
    // While somebody is at the machine.
    void startGated(const char* options = "")
    {
        start(options);
        assertion = create();
        EXPECT_EQ(assertion.status, 0);
        EXPECT_TRUE(desktop->becomes("freed", 1)) << desktop->log().join(u'|').toStdString();
    }

    QtMainQueue queue;
    std::unique_ptr<Desktop> desktop;
    std::unique_ptr<LinuxPowerAssertions> power;
    PowerAssertions::Created assertion{};
};

TEST_F(IdleGateTest, TheLockIsHeldWhileNobodyIsThereAndTheUsersOwnSuspendGoesThroughOtherwise)
{
    startGated();
    EXPECT_TRUE(desktop->log().contains(QStringLiteral("watch idle 30000")));
    EXPECT_TRUE(userCanSuspend());
    desktop->tell("idle");
    EXPECT_TRUE(desktop->becomes("held", 2));
    EXPECT_FALSE(userCanSuspend());
    EXPECT_TRUE(waitFor([&] { return desktop->count("watch active") == 1; }));
    desktop->tell("active");
    EXPECT_TRUE(desktop->becomes("freed", 2));
    EXPECT_TRUE(userCanSuspend());
    desktop->tell("idle");
    EXPECT_TRUE(desktop->becomes("held", 3));
}

TEST_F(IdleGateTest, TheEndOfTheAssertionFreesTheLockAndTheNextOneIsGatedFromTheBeginning)
{
    startGated();
    desktop->tell("idle");
    EXPECT_TRUE(desktop->becomes("held", 2));
    power->release(assertion.id);
    EXPECT_TRUE(desktop->becomes("freed", 2));
    desktop->tell("active");
    desktop->tell("idle");
    runEventsFor(100ms);
    EXPECT_EQ(desktop->count("held"), 2);
    desktop->tell("active");
    runEventsFor(100ms);
    EXPECT_EQ(create().status, 0);
    runEventsFor(200ms);
    EXPECT_EQ(desktop->count("held"), 2);
    desktop->tell("idle");
    EXPECT_TRUE(desktop->becomes("held", 3));
}

TEST_F(IdleGateTest, AMachineThatIsIdleAlreadyIsHeldAllTheTime)
{
    start("idle");
    EXPECT_EQ(create().status, 0);
    EXPECT_TRUE(waitFor([&] { return desktop->count("watch active") == 1; }))
        << desktop->log().join(u'|').toStdString();
    EXPECT_LE(desktop->count("held") - desktop->count("freed"), 1);
    EXPECT_TRUE(waitFor([&] { return !userCanSuspend(); }));
}

TEST_F(IdleGateTest, AMonitorThatGoesLeavesTheLockHeldAndOneThatComesBackGatesItAgain)
{
    startGated();
    desktop->tell("end-monitor");
    EXPECT_TRUE(desktop->becomes("held", 2));
    desktop->tell("restart-monitor");
    EXPECT_TRUE(desktop->becomes("freed", 2));
}

TEST_F(IdleGateTest, CinnamonsLockIsGatedByItsOwnMonitor)
{
    startGated("cinnamon");
    EXPECT_TRUE(userCanSuspend());
    desktop->tell("idle");
    EXPECT_TRUE(desktop->becomes("held", 2));
}

TEST_F(IdleGateTest, ThereIsNoGateWhereTheLockBindsNobodyOrNobodyTellsWhoIsThere)
{
    for (const auto* options : {"old", "keeps", "unmonitored"}) {
        SCOPED_TRACE(options);
        start(options);
        EXPECT_EQ(create().status, 0);
        runEventsFor(2500ms);
        EXPECT_EQ(desktop->count("held"), 1);
        EXPECT_EQ(desktop->count("freed"), 0);
        EXPECT_EQ(desktop->count("watch idle 30000"), 0);
        power.reset();
    }
}

TEST_F(IdleGateTest, ASessionManagerWhoseLockDoesNotCountGivesWayToTheNextService)
{
    PowerService next({QStringLiteral("power-management")});
    testing::internal::CaptureStdout();
    start("uncounted old");
    EXPECT_EQ(create().status, 0);
    EXPECT_TRUE(waitFor([&] { return next.log().contains(QStringLiteral("granted 41")); }, 10s));
    EXPECT_EQ(desktop->count("freed"), 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "⚠️ PowerAssertions: org.gnome.SessionManager grants a lock that does not count\n");
}

} // namespace

} // namespace orrinvale
