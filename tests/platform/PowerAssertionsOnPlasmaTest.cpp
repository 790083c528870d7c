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

// Real PowerDevil. It enforces an inhibition five seconds after the request.
bool isInhibited()
{
    constexpr uint interruptSession = 1;
    const auto name = QStringLiteral("org.kde.Solid.PowerManagement.PolicyAgent");
    auto question = QDBusMessage::createMethodCall(name, QStringLiteral("/org/kde/Solid/PowerManagement/PolicyAgent"),
                                                   name, QStringLiteral("HasInhibition"));
    question << interruptSession;
    const auto answer = QDBusConnection::sessionBus().call(question);
    return answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool();
}

TEST(PowerAssertionsOnPlasma, InhibitsTheSessionAndLeavesLogindAlone)
{
    QtMainQueue queue;
    LinuxPowerAssertions power(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), queue);
    const auto created = power.create("NoIdleSleepAssertion", 255, "Manual mode");
    EXPECT_EQ(created.status, 0);
    EXPECT_TRUE(waitFor([] { return isInhibited(); }, 8s));
    EXPECT_EQ(logindLocks(), QStringList());
    testing::internal::CaptureStdout();
    runEventsFor(3s); // it is asked whether the lock counts
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(isInhibited());
    power.release(created.id);
    EXPECT_TRUE(waitFor([] { return !isInhibited(); }));
}

TEST(PowerAssertionsOnPlasma, IsHeldAgainAfterPowerDevilRestarted)
{
    QtMainQueue queue;
    LinuxPowerAssertions power(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), queue);
    ASSERT_EQ(power.create("NoIdleSleepAssertion", 255, "Manual mode").status, 0);
    ASSERT_TRUE(waitFor([] { return isInhibited(); }, 8s));
    ASSERT_TRUE(bed({QStringLiteral("restart"), QStringLiteral("powerdevil")}));
    EXPECT_FALSE(isInhibited());
    EXPECT_TRUE(waitFor([] { return isInhibited(); }, 10s));
    EXPECT_EQ(logindLocks(), QStringList());
}

} // namespace

} // namespace orrinvale
