// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerAssertions.h"

#include "platform/fake/VirtualTime.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/platform/PowerService.h"

#include <gtest/gtest.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

QVariant sessionManager(const QString& method, const QVariantList& arguments)
{
    const auto name = QStringLiteral("org.gnome.SessionManager");
    auto question = QDBusMessage::createMethodCall(name, QStringLiteral("/org/gnome/SessionManager"), name, method);
    question.setArguments(arguments);
    return QDBusConnection::sessionBus().call(question).arguments().value(0);
}

bool isInhibited(uint flags)
{
    return sessionManager(QStringLiteral("IsInhibited"), {flags}).toBool();
}

constexpr uint suspend = 4;
constexpr uint idle = 8;

TEST(PowerAssertionsOnGnome, InhibitsSuspendAloneUntilReleased)
{
    QtMainQueue queue;
    LinuxPowerAssertions power(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), queue);
    ASSERT_FALSE(isInhibited(suspend));
    const auto created = power.create("NoIdleSleepAssertion", 255, "Manual mode");
    EXPECT_EQ(created.status, 0);
    EXPECT_TRUE(waitFor([] { return isInhibited(suspend); }));
    EXPECT_FALSE(isInhibited(idle));
    EXPECT_EQ(logindLocks(), QStringList(QStringLiteral("idle Manual mode block")));
    power.release(created.id);
    EXPECT_TRUE(waitFor([] { return !isInhibited(suspend) && logindLocks().isEmpty(); }));
}

TEST(PowerAssertionsOnGnome, SaysThatTheLockCounts)
{
    VirtualTime time;
    LinuxPowerAssertions power(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), time);
    testing::internal::CaptureStdout();
    power.create("NoIdleSleepAssertion", 255, "Manual mode");
    ASSERT_TRUE(waitFor([] { return isInhibited(suspend); }));
    time.advance(10s);
    runEventsFor(200ms);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(isInhibited(suspend));
}

TEST(PowerAssertionsOnGnome, DestructionFreesTheLock)
{
    QtMainQueue queue;
    {
        LinuxPowerAssertions power(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), queue);
        power.create("NoIdleSleepAssertion", 255, "Manual mode");
        ASSERT_TRUE(waitFor([] { return isInhibited(suspend); }));
    }
    EXPECT_TRUE(waitFor([] { return !isInhibited(suspend) && logindLocks().isEmpty(); }));
}

} // namespace

} // namespace orrinvale
