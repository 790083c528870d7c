// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserNotifications.h"

#include "base/AtomicFile.h"
#include "tests/platform/ScriptedService.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include <unistd.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

void bed(const QString& verb)
{
    ASSERT_EQ(QProcess::execute(qEnvironmentVariable("BED_TOOL"), {verb, QStringLiteral("dunst")}), 0);
}

struct TemporaryFile {
    ~TemporaryFile() { std::filesystem::remove(path); }
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("orrinvale-record-" + std::to_string(::getpid()));
};

// A daemon that writes down what it is asked, as "show REPLACED TITLE BODY" and "close ID".
struct UserNotificationsTest : testing::Test {
    UserNotificationsTest() { bed(QStringLiteral("stop")); }

    void startDaemon(const QStringList& options = {})
    {
        daemon.reset(); // two cannot have the name
        daemon = std::make_unique<ScriptedService>(QStringLiteral(NOTIFICATION_DAEMON), options);
        // Its word that it is ready may be faster than the bus; what the bus said of it comes before this answer.
        ASSERT_TRUE(QDBusConnection::sessionBus().interface()->isServiceRegistered(
            QStringLiteral("org.freedesktop.Notifications")));
        QCoreApplication::processEvents();
    }
    void active(const char* body = "Downloading a & b.part") { notifications.post({"active", "Active", body}); }
    void idle()
    {
        notifications.removeDelivered({"active"});
        notifications.post({"idle", "Inactive", "Nothing"});
    }
    bool logs(const QStringList& expected) { return daemon->logs(expected); }

    std::unique_ptr<ScriptedService> daemon;
    LinuxUserNotifications notifications{QDBusConnection::sessionBus()};
    const QString asked = QStringLiteral("capabilities");
    const QString shownActive = QStringLiteral("show 0 Active Downloading a & b.part");
    const QString shownIdle = QStringLiteral("show 0 Inactive Nothing");
    const QStringList silent{QStringLiteral("silent")};
    const QStringList markup{QStringLiteral("markup")};
};

TEST_F(UserNotificationsTest, TheSameIdentifierReplacesAndRemovingCloses)
{
    startDaemon();
    active();
    EXPECT_TRUE(logs({asked, shownActive}));
    runEventsFor(50ms);
    active("Manual mode");
    EXPECT_TRUE(logs({asked, shownActive, QStringLiteral("show 7 Active Manual mode")}));
    runEventsFor(50ms);
    idle();
    EXPECT_TRUE(
        logs({asked, shownActive, QStringLiteral("show 7 Active Manual mode"), QStringLiteral("close 7"), shownIdle}));
}

TEST_F(UserNotificationsTest, AnActiveOneStillOnItsWayIsClosedOnArrival)
{
    startDaemon();
    active();
    ASSERT_TRUE(logs({asked, shownActive})); // its answer has not been read yet
    idle();
    EXPECT_TRUE(waitFor([&] { return daemon->log().contains(QStringLiteral("close 7")); }));
    EXPECT_TRUE(daemon->log().contains(shownIdle));
}

TEST_F(UserNotificationsTest, MarkupIsEscapedForDaemonsThatShowItAndTheNextIsAskedAgain)
{
    startDaemon(markup);
    active("R&D <b>x");
    EXPECT_TRUE(logs({asked, QStringLiteral("show 0 Active R&amp;D &lt;b&gt;x")}));
    startDaemon();
    active("R&D <b>x");
    EXPECT_TRUE(logs({asked, QStringLiteral("show 0 Active R&D <b>x")}));
}

TEST_F(UserNotificationsTest, ADaemonThatRestartsInBetweenGetsTheLaterOnesAndNoOldId)
{
    startDaemon();
    active();
    ASSERT_TRUE(logs({asked, shownActive}));
    runEventsFor(50ms);
    startDaemon();
    idle();
    EXPECT_TRUE(logs({asked, shownIdle}));
    runEventsFor(100ms);
    EXPECT_TRUE(logs({asked, shownIdle}));
}

TEST_F(UserNotificationsTest, OneThatNeverAnswersHoldsUpNothingAndItsSuccessorIsAskedItself)
{
    startDaemon(silent);
    active("R&D");
    ASSERT_TRUE(logs({asked}));
    const auto begin = std::chrono::steady_clock::now();
    idle();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 100ms);
    ScriptedService successor(QStringLiteral(NOTIFICATION_DAEMON), markup, ScriptedService::Start::queued);
    daemon.reset();
    EXPECT_TRUE(waitFor([&] { return successor.log().contains(shownIdle); }));
    active("R&D");
    EXPECT_TRUE(waitFor([&] { return successor.log().contains(QStringLiteral("show 0 Active R&amp;D")); }))
        << successor.log().join(u'|').toStdString();
}

TEST_F(UserNotificationsTest, WithoutADaemonNothingWaitsAndALaterOneGetsTheNext)
{
    active();
    idle();
    runEventsFor(100ms);
    startDaemon();
    active();
    EXPECT_TRUE(logs({asked, shownActive})) << daemon->log().join(u'|').toStdString();
}

TEST_F(UserNotificationsTest, WhatAKilledProcessLeftIsWithdrawnAtTheNextStart)
{
    const TemporaryFile record;
    startDaemon();
    {
        LinuxUserNotifications killed{QDBusConnection::sessionBus(), record.path};
        killed.requestAuthorization();
        killed.post({"active", "Active", "x"});
        killed.post({"idle", "Inactive", "y"});
        ASSERT_TRUE(waitFor([&] { return readWholeFile(record.path).value_or("").ends_with(" 7 8"); }));
    }
    LinuxUserNotifications next{QDBusConnection::sessionBus(), record.path};
    next.requestAuthorization();
    EXPECT_TRUE(waitFor([&] {
        return daemon->log().mid(3) == QStringList({QStringLiteral("close 7"), QStringLiteral("close 8")});
    })) << daemon->log().join(u'|').toStdString();
    EXPECT_FALSE(std::filesystem::exists(record.path));
}

TEST_F(UserNotificationsTest, AnotherDaemonsNumbersAreLeftAlone)
{
    const TemporaryFile record;
    for (const auto* text : {":1.99999 7 8", "", "x", " ", ":1.1 -1 99999999999999999999 y"}) {
        ASSERT_TRUE(writeFileAtomically(record.path, text));
        startDaemon();
        LinuxUserNotifications next{QDBusConnection::sessionBus(), record.path};
        next.requestAuthorization();
        runEventsFor(100ms);
        EXPECT_EQ(daemon->log(), QStringList()) << text;
    }
}

TEST_F(UserNotificationsTest, WhatIsWithdrawnAtTheEndHasLeftWhenTheFlushReturns)
{
    startDaemon();
    active();
    ASSERT_TRUE(logs({asked, shownActive}));
    runEventsFor(50ms);
    notifications.removeDelivered({"active"});
    const QDeadlineTimer deadline(1s);
    notifications.flush(deadline);
    EXPECT_FALSE(deadline.hasExpired());
    EXPECT_TRUE(logs({asked, shownActive, QStringLiteral("close 7")}));
}

TEST_F(UserNotificationsTest, ControlCharactersAreShownAsSigns)
{
    startDaemon();
    active("Downloading \x1B[31mfilm\a.part");
    EXPECT_TRUE(logs({asked, QStringLiteral("show 0 Active Downloading ␛[31mfilm␇.part")}));
}

TEST(UserNotifications, WithoutASessionBusNothingHappens)
{
    LinuxUserNotifications notifications{QDBusConnection(QString())};
    notifications.post({"active", "Active", "x"});
    notifications.removeDelivered({"active"});
    runEventsFor(50ms);
}

// dunst's own count of what it shows.
QByteArray displayed()
{
    QProcess control;
    control.start(QStringLiteral("dunstctl"), {QStringLiteral("count"), QStringLiteral("displayed")});
    control.waitForFinished();
    return control.readAllStandardOutput().trimmed();
}

TEST(UserNotifications, ADunstThatRestartsShowsTheLaterOnes)
{
    bed(QStringLiteral("restart"));
    LinuxUserNotifications notifications{QDBusConnection::sessionBus()};
    notifications.post({"active", "Active", "Downloading R&D <b>x.part"});
    EXPECT_TRUE(waitFor([] { return displayed() == "1"; }));
    bed(QStringLiteral("restart"));
    EXPECT_EQ(displayed(), "0");
    runEventsFor(50ms);
    notifications.removeDelivered({"active"});
    notifications.post({"idle", "Inactive", "Nothing"});
    EXPECT_TRUE(waitFor([] { return displayed() == "1"; }));
    notifications.post({"active", "Active", "Manual mode"});
    EXPECT_TRUE(waitFor([] { return displayed() == "2"; }));
    runEventsFor(50ms);
    notifications.removeDelivered({"active"});
    EXPECT_TRUE(waitFor([] { return displayed() == "1"; }));
}

} // namespace

} // namespace orrinvale
