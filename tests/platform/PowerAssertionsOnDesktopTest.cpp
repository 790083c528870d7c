// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerAssertions.h"

#include "platform/fake/VirtualTime.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/platform/PowerService.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

QStringList kind(const char* name, const char* delay = "0")
{
    return {QString::fromLatin1(name), QString::fromLatin1(delay)};
}

// Small services of one kind each on a private session bus, and no system bus.
class PowerAssertionsOnDesktop : public testing::Test
{
protected:
    void SetUp() override { reset(); }
    void TearDown() override
    {
        m_power.reset();
        qunsetenv("XDG_CURRENT_DESKTOP");
        qunsetenv("SNAP_NAME");
    }
    void reset()
    {
        m_power =
            std::make_unique<LinuxPowerAssertions>(QDBusConnection::sessionBus(), QDBusConnection(QString()), m_queue);
    }
    PowerAssertions::Created create() { return m_power->create("NoIdleSleepAssertion", 255, "Manual mode"); }

    const QStringList m_powerManagementHeld{QStringLiteral("Inhibit orrinvale Manual mode"),
                                            QStringLiteral("granted 41")};
    QtMainQueue m_queue;
    std::unique_ptr<LinuxPowerAssertions> m_power;
};

TEST_F(PowerAssertionsOnDesktop, NoServiceIsNotSupported)
{
    EXPECT_EQ(create().status, -ENOTSUP);
    LinuxPowerAssertions withoutBuses(QDBusConnection(QString()), QDBusConnection(QString()), m_queue);
    EXPECT_LT(withoutBuses.create("NoIdleSleepAssertion", 255, "x").status, 0);
}

struct Asked {
    const char* service;
    const char* desktop;
    const char* snap;
    QStringList log;
};

TEST_F(PowerAssertionsOnDesktop, EachServiceIsAskedInItsOwnWay)
{
    const Asked table[] = {
        {"policy-agent",
         "KDE",
         "",
         {QStringLiteral("AddInhibition 1 orrinvale Manual mode"), QStringLiteral("granted 41"),
          QStringLiteral("ReleaseInhibition 41")}},
        {"session-manager",
         "GNOME",
         "",
         {QStringLiteral("Inhibit orrinvale 0 Manual mode 4"), QStringLiteral("granted 41"),
          QStringLiteral("Uninhibit 41")}},
        {"power-management",
         "XFCE",
         "",
         {QStringLiteral("Inhibit orrinvale Manual mode"), QStringLiteral("granted 41"),
          QStringLiteral("UnInhibit 41")}},
        {"screen-saver",
         "COSMIC",
         "",
         {QStringLiteral("Inhibit orrinvale Manual mode"), QStringLiteral("granted 41"),
          QStringLiteral("UnInhibit 41")}},
        {"portal",
         "GNOME",
         "orrinvale",
         {QStringLiteral("Inhibit  4 {'reason': 'Manual mode'}"),
          QStringLiteral("granted /org/freedesktop/portal/desktop/request/1"), QStringLiteral("Close")}},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.service);
        qputenv("XDG_CURRENT_DESKTOP", row.desktop);
        qputenv("SNAP_NAME", row.snap);
        PowerService service(kind(row.service));
        reset();
        const auto created = create();
        EXPECT_EQ(created.status, 0);
        m_power->release(created.id);
        EXPECT_TRUE(service.logs(row.log)) << service.log().join(u'|').toStdString();
    }
}

TEST_F(PowerAssertionsOnDesktop, ScreenSaverAndPortalAreForTheirOwnPlacesOnly)
{
    PowerService screenSaver(kind("screen-saver"));
    PowerService portal(kind("portal"));
    qputenv("XDG_CURRENT_DESKTOP", "GNOME");
    reset();
    EXPECT_EQ(create().status, -ENOTSUP);
    EXPECT_EQ(screenSaver.log() + portal.log(), QStringList());
}

TEST_F(PowerAssertionsOnDesktop, TheFirstThatGrantsIsTheOnlyOneHeld)
{
    PowerService refusing(kind("policy-agent", "refuse"));
    PowerService granting(kind("session-manager"));
    PowerService unneeded(kind("power-management"));
    reset();
    EXPECT_EQ(create().status, 0);
    runEventsFor(200ms);
    EXPECT_EQ(refusing.log().size(), 1);
    EXPECT_EQ(granting.log().size(), 2);
    EXPECT_EQ(unneeded.log(), QStringList());
}

TEST_F(PowerAssertionsOnDesktop, ARefusalIsReportedAndAskedAgainNextTime)
{
    PowerService refusing(kind("power-management", "refuse"));
    reset();
    EXPECT_EQ(create().status, -EACCES);
    EXPECT_EQ(create().status, -EACCES);
    EXPECT_TRUE(waitFor([&] { return refusing.log().size() == 2; }));
}

TEST_F(PowerAssertionsOnDesktop, AServiceThatTakesItsTimeHoldsWhenItAnswers)
{
    PowerService late(kind("power-management", "2"));
    reset();
    PowerAssertions::Created created{};
    const auto taken = timeTaken([&] { created = create(); });
    EXPECT_EQ(created.status, 0);
    EXPECT_GE(taken, 800ms);
    EXPECT_LE(taken, 1000ms);
    EXPECT_TRUE(late.logs(m_powerManagementHeld));
    runEventsFor(200ms);
    EXPECT_TRUE(late.logs(m_powerManagementHeld));
    m_power->release(created.id);
    EXPECT_TRUE(late.logs(m_powerManagementHeld + QStringList{QStringLiteral("UnInhibit 41")}));
}

TEST_F(PowerAssertionsOnDesktop, OneThatRefusesInTheEndIsAskedAgainWhileItIsWanted)
{
    PowerService late(kind("power-management", "refuse-1.2"));
    VirtualTime time;
    LinuxPowerAssertions power(QDBusConnection::sessionBus(), QDBusConnection(QString()), time);
    const auto created = power.create("NoIdleSleepAssertion", 255, "Manual mode");
    EXPECT_EQ(created.status, 0);
    runEventsFor(500ms);
    EXPECT_EQ(late.log().size(), 1);
    time.advance(30s);
    EXPECT_TRUE(waitFor([&] { return late.log().size() == 2; }));
    power.release(created.id);
    time.advance(60s);
    runEventsFor(200ms);
    EXPECT_EQ(late.log().size(), 2);
}

TEST_F(PowerAssertionsOnDesktop, ACookieThatComesWhenNothingIsWantedAnyMoreIsReleasedAtOnce)
{
    PowerService late(kind("power-management", "2"));
    reset();
    m_power->release(create().id);
    EXPECT_TRUE(late.logs(m_powerManagementHeld + QStringList{QStringLiteral("UnInhibit 41")}));
}

TEST_F(PowerAssertionsOnDesktop, ACookieThatComesAfterDestructionIsReleased)
{
    PowerService late(kind("power-management", "1.5"));
    reset();
    EXPECT_EQ(create().status, 0);
    m_power.reset();
    EXPECT_TRUE(late.logs(m_powerManagementHeld + QStringList{QStringLiteral("UnInhibit 41")}));
}

TEST_F(PowerAssertionsOnDesktop, AServiceThatReturnsIsAskedAgain)
{
    auto service = std::make_unique<PowerService>(kind("power-management"));
    reset();
    const auto created = create();
    ASSERT_EQ(created.status, 0);
    service.reset();
    service = std::make_unique<PowerService>(kind("power-management"));
    runEventsFor(400ms);
    EXPECT_EQ(service->log(), QStringList());
    EXPECT_TRUE(service->logs(m_powerManagementHeld));
    m_power->release(created.id);
    EXPECT_TRUE(service->logs(m_powerManagementHeld + QStringList{QStringLiteral("UnInhibit 41")}));
}

TEST_F(PowerAssertionsOnDesktop, OneThatKeepsRestartingIsAskedOnceItRests)
{
    auto service = std::make_unique<PowerService>(kind("power-management"));
    reset();
    const auto created = create();
    ASSERT_EQ(created.status, 0);
    int asked = 0;
    for (int i = 0; i < 8; ++i) {
        service.reset();
        service = std::make_unique<PowerService>(kind("power-management"));
        runEventsFor(50ms);
        asked += static_cast<int>(service->log().size());
    }
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(service->logs(m_powerManagementHeld));
    m_power->release(created.id);
}

TEST_F(PowerAssertionsOnDesktop, ACookieIsNeverGivenBackToAnotherOwner)
{
    auto first = std::make_unique<PowerService>(kind("power-management"));
    reset();
    ASSERT_EQ(create().status, 0);
    PowerService second(kind("power-management"), PowerService::Start::queued);
    first.reset();
    EXPECT_TRUE(second.logs(m_powerManagementHeld)) << second.log().join(u'|').toStdString();
}

TEST_F(PowerAssertionsOnDesktop, ALateCookieOfAnEarlierReasonIsReplaced)
{
    PowerService late(kind("power-management", "1.2"));
    reset();
    m_power->release(create().id);
    m_power->create("NoIdleSleepAssertion", 255, "Downloading film.mkv.part");
    EXPECT_TRUE(waitFor([&] { return late.log().contains(QStringLiteral("UnInhibit 41")); }));
}

TEST_F(PowerAssertionsOnDesktop, AServiceThatReturnsUnwantedIsLeftAlone)
{
    auto service = std::make_unique<PowerService>(kind("power-management"));
    reset();
    const auto created = create();
    service.reset();
    m_power->release(created.id);
    service = std::make_unique<PowerService>(kind("power-management"));
    runEventsFor(1500ms);
    EXPECT_EQ(service->log(), QStringList());
}

TEST_F(PowerAssertionsOnDesktop, TheHolderStaysWhenAPreferredServiceAppears)
{
    PowerService first(kind("power-management"));
    reset();
    const auto created = create();
    PowerService preferred(kind("session-manager"));
    runEventsFor(1500ms);
    EXPECT_EQ(preferred.log(), QStringList());
    m_power->release(created.id);
    EXPECT_EQ(create().status, 0);
    EXPECT_TRUE(waitFor([&] { return preferred.log().size() == 2; }));
}

} // namespace

} // namespace orrinvale
