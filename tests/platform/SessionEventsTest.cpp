// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSessionEvents.h"

#include "base/ThreadSerialQueue.h"
#include "platform/fake/VirtualTime.h"
#include "platform/linux/DisplayPower.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/TemporaryFolder.h"
#include "tests/platform/WaitFor.h"

#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <stdlib.h>

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
    ThreadSerialQueue background{queue, "test"};
    LinuxSessionEvents events{QDBusConnection::sessionBus(), QDBusConnection::systemBus(), queue, background,
                              "/nonexistent"};
    std::vector<ScreenPresence> reports;
    Cancellable token = events.observe([this](ScreenPresence presence) { reports.push_back(presence); });
};

TEST_F(SessionEventsTest, SaversAreMergedAndOnlyChangesAreReported)
{
    say(first, gnome, true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
    say(second, freedesktop, true);
    say(first, gnome, false);
    runEventsFor(100ms);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
    say(second, freedesktop, false);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep, ScreenPresence::awake}));
}

TEST_F(SessionEventsTest, ASaverThatGoesTakesItsWordWithIt)
{
    say(first, gnome, true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
    first.unregisterService(QString::fromLatin1(gnome));
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep, ScreenPresence::awake}));
}

TEST_F(SessionEventsTest, ASessionAlreadyAsleepIsReportedInATurnOfItsOwn)
{
    say(first, gnome, true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
    std::vector<ScreenPresence> late;
    const auto other = events.observe([&](ScreenPresence presence) { late.push_back(presence); });
    EXPECT_TRUE(late.empty());
    EXPECT_TRUE(waitFor([&] { return late == std::vector{ScreenPresence::asleep}; }));
}

// A login manager with one session on the system bus, as long as it lives.
class LoginManager final : public QDBusVirtualObject
{
public:
    explicit LoginManager(QVariantMap properties) : m_properties(std::move(properties))
    {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/login1"), this, QDBusConnection::SubPath);
        EXPECT_TRUE(m_bus.registerService(QStringLiteral("org.freedesktop.login1")));
    }
    ~LoginManager() override { QDBusConnection::disconnectFromBus(QStringLiteral("login")); }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        if (message.member() == QStringLiteral("GetSession"))
            return bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(m_path))));
        ++readings;
        return bus.send(message.createReply(m_properties));
    }
    void change(const char* property, bool value)
    {
        m_properties[QString::fromLatin1(property)] = value;
        auto signal = QDBusMessage::createSignal(m_path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                 QStringLiteral("PropertiesChanged"));
        m_bus.send(signal << QStringLiteral("org.freedesktop.login1.Session")
                          << QVariantMap{{QString::fromLatin1(property), value}} << QStringList());
    }

    int readings = 0;

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, QStringLiteral("login"));
    const QString m_path = QStringLiteral("/org/freedesktop/login1/session/_31");
    QVariantMap m_properties;
};

const QVariantMap usedSession{{QStringLiteral("Active"), true}, {QStringLiteral("LockedHint"), false}};

TEST_F(SessionEventsTest, ALockedAndAnInactiveSessionAreAsleepTogether)
{
    LoginManager login(usedSession);
    ASSERT_TRUE(waitFor([&] { return login.readings == 1; }));
    login.change("LockedHint", true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
    login.change("Active", false);
    login.change("LockedHint", false);
    runEventsFor(100ms);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
    login.change("Active", true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep, ScreenPresence::awake}));
}

TEST_F(SessionEventsTest, ASessionThatIsLockedAtTheFirstReadingIsAsleep)
{
    LoginManager login({{QStringLiteral("Active"), true}, {QStringLiteral("LockedHint"), true}});
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
}

TEST_F(SessionEventsTest, ALoginManagerThatGoesTakesItsWordWithItAndTheNextIsRead)
{
    auto login = std::make_unique<LoginManager>(usedSession);
    ASSERT_TRUE(waitFor([&] { return login->readings == 1; }));
    login->change("LockedHint", true);
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep}));
    login.reset();
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep, ScreenPresence::awake}));
    login = std::make_unique<LoginManager>(QVariantMap{{QStringLiteral("Active"), false}});
    EXPECT_TRUE(reportsBecome({ScreenPresence::asleep, ScreenPresence::awake, ScreenPresence::asleep}));
}

// Connectors as in /sys/class/drm.
struct DisplaysTest : testing::Test {
    void connector(const char* name, const char* status, const char* dpms) const
    {
        std::filesystem::create_directories(folder / name);
        std::ofstream(folder / name / "status") << status << '\n';
        std::ofstream(folder / name / "dpms") << dpms << '\n';
    }
    TemporaryFolder temporary;
    const std::filesystem::path& folder = temporary.path;
};

TEST_F(DisplaysTest, AreOffWhenEachConnectedOneIs)
{
    EXPECT_FALSE(areDisplaysOff(folder));
    EXPECT_FALSE(areDisplaysOff(folder / "missing"));
    connector("card0-HDMI-A-1", "disconnected", "Off");
    EXPECT_FALSE(areDisplaysOff(folder));
    connector("card0-eDP-1", "connected", "On");
    EXPECT_FALSE(areDisplaysOff(folder));
    connector("card0-eDP-1", "connected", "Off");
    EXPECT_TRUE(areDisplaysOff(folder));
    connector("card1-DP-1", "connected", "On");
    EXPECT_FALSE(areDisplaysOff(folder));
    std::filesystem::remove(folder / "card1-DP-1" / "dpms");
    EXPECT_FALSE(areDisplaysOff(folder));
}

TEST_F(DisplaysTest, AreLookedAtEveryTenSecondsWhateverTheDesktop)
{
    VirtualTime time;
    const auto serial = time.make("displays");
    connector("card0-eDP-1", "connected", "On");
    LinuxSessionEvents events(QDBusConnection(QString()), QDBusConnection(QString()), time, *serial, folder);
    std::vector<ScreenPresence> reports;
    const auto token = events.observe([&](ScreenPresence presence) { reports.push_back(presence); });
    time.advance(10s);
    EXPECT_TRUE(reports.empty());
    connector("card0-eDP-1", "connected", "Off");
    time.advance(10s);
    EXPECT_EQ(reports, std::vector{ScreenPresence::asleep});
    connector("card0-eDP-1", "connected", "On");
    time.advance(10s);
    EXPECT_EQ(reports, (std::vector{ScreenPresence::asleep, ScreenPresence::awake}));
}

} // namespace

} // namespace orrinvale
