// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DBus.h"

#include "base/ThreadSerialQueue.h"
#include "platform/fake/FakeFilePanels.h"
#include "platform/linux/LinuxAppearance.h"
#include "platform/linux/LinuxPowerAssertions.h"
#include "platform/linux/LinuxPowerSources.h"
#include "platform/linux/LinuxSessionEvents.h"
#include "platform/linux/LinuxUserNotifications.h"
#include "platform/linux/PortalFilePanels.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/platform/WaitFor.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QPoint>

#include <gtest/gtest.h>

#include <cmath>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

using Texts = QMap<QString, QString>;
using Lists = QList<QStringList>;
using Bodies = QList<QVariantList>;

void registerTypes()
{
    qDBusRegisterMetaType<Texts>();
    qDBusRegisterMetaType<Lists>();
}

QVariant nested(QVariant value, int depth)
{
    for (; depth > 0; --depth)
        value = QVariant::fromValue(QDBusVariant(value));
    return value;
}

// What a service may put where a value of another signature belongs.
QVariantList wrongValues()
{
    const auto name = QStringLiteral("Percentage");
    return {QVariant::fromValue(QPoint(1, 2)), // (ii)
            QVariant::fromValue(Texts()),
            QVariant::fromValue(Texts{{name, name}}),
            QVariant::fromValue(Lists()),
            QVariant::fromValue(Lists{{name}, {}}),
            QVariantMap{{name, QVariant::fromValue(Texts{{name, name}})},
                        {QStringLiteral("OnBattery"), QVariant::fromValue(QPoint(3, 4))},
                        {QStringLiteral("uris"), 7},
                        {QStringLiteral("IsPresent"), QStringLiteral("yes")}},
            QVariantList{1, name},
            QStringList(),
            QByteArray("\xff\xfe"),
            nested(1, 12),
            nested(QVariant::fromValue(Lists()), 3),
            QVariant::fromValue(QDBusObjectPath(QStringLiteral("/"))),
            QVariant::fromValue(QDBusSignature(QStringLiteral("a{sv}"))),
            name,
            true,
            -1,
            std::nan(""),
            std::numeric_limits<qulonglong>::max()};
}

// The same in each of the first three places, and nothing at all.
Bodies wrongBodies()
{
    Bodies bodies{{}};
    for (const auto& value : wrongValues())
        bodies << QVariantList{value} << QVariantList{QStringLiteral("x"), value}
               << QVariantList{QStringLiteral("x"), QStringLiteral("y"), value} << QVariantList{0u, value};
    return bodies;
}

// Owns names on one bus, answers every call with the same body, and emits what it is told.
class LyingService final : public QDBusVirtualObject
{
public:
    LyingService(QDBusConnection::BusType type, const QStringList& names)
        : m_name(names.front()), m_bus(QDBusConnection::connectToBus(type, m_name))
    {
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        for (const auto& name : names)
            EXPECT_TRUE(m_bus.registerService(name));
    }
    ~LyingService() override { QDBusConnection::disconnectFromBus(m_name); }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        ++answers;
        if (message.member() == u"OpenFile")
            token = memberOf<QString>(mapOf(message, 2), QStringLiteral("handle_token")).value_or(QString());
        return bus.send(message.createReply(truths.value(message.member(), lie)));
    }
    void tell(const char* path, const char* interface, const char* name, const QVariantList& body)
    {
        auto signal = QDBusMessage::createSignal(QString::fromLatin1(path), QString::fromLatin1(interface),
                                                 QString::fromLatin1(name));
        signal.setArguments(body);
        EXPECT_TRUE(m_bus.send(signal));
    }

    int answers = 0;
    QVariantList lie;
    QString token;                      // of the last question for a folder
    QMap<QString, QVariantList> truths; // by the method

private:
    const QString m_name;
    QDBusConnection m_bus;
};

constexpr auto properties = "org.freedesktop.DBus.Properties";
constexpr auto changed = "PropertiesChanged";
constexpr auto displayDevice = "/org/freedesktop/UPower/devices/DisplayDevice";
constexpr auto upower = "/org/freedesktop/UPower";
constexpr auto session = "/org/freedesktop/login1/session/_31";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";

// Every adapter that listens to a bus, and services that say nothing of the right shape.
struct LyingServicesTest : testing::Test {
    LyingServicesTest()
    {
        registerTypes();
        system.truths[QStringLiteral("GetSession")] = {
            QVariant::fromValue(QDBusObjectPath(QString::fromLatin1(session)))};
    }

    void tellEverything(const QVariantList& body)
    {
        system.tell(displayDevice, properties, changed, body);
        system.tell(upower, properties, changed, body);
        system.tell(session, properties, changed, body);
        desktop.tell("/org/gnome/Mutter/DisplayConfig", properties, changed, body);
        for (const auto* saver : {"gnome", "cinnamon", "mate"})
            desktop.tell("/", ("org." + std::string(saver) + ".ScreenSaver").c_str(), "ActiveChanged", body);
        desktop.tell("/org/freedesktop/Notifications", "org.freedesktop.Notifications", "NotificationClosed", body);
        desktop.tell("/org/freedesktop/Notifications", "org.freedesktop.Notifications", "ActionInvoked", body);
        desktop.tell(portalPath, "org.freedesktop.portal.Settings", "SettingChanged", body);
        desktop.tell(requestPath().c_str(), "org.freedesktop.portal.Request", "Response", body);
    }
    std::string requestPath() const
    {
        auto sender = QDBusConnection::sessionBus().baseService().mid(1).replace(u'.', u'_').toStdString();
        return "/org/freedesktop/portal/desktop/request/" + sender + '/' + desktop.token.toStdString();
    }

    LyingService system{QDBusConnection::SystemBus,
                        {QStringLiteral("org.freedesktop.UPower"), QStringLiteral("org.freedesktop.login1")}};
    LyingService desktop{
        QDBusConnection::SessionBus,
        {QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("org.freedesktop.portal.Desktop"),
         QStringLiteral("org.gnome.Mutter.DisplayConfig"), QStringLiteral("org.gnome.SessionManager"),
         QStringLiteral("org.gnome.ScreenSaver"), QStringLiteral("org.kde.Solid.PowerManagement.PolicyAgent"),
         QStringLiteral("org.gnome.Mutter.IdleMonitor"), QStringLiteral("org.freedesktop.PowerManagement")}};
    QDBusConnection sessionBus = QDBusConnection::sessionBus();
    QDBusConnection systemBus = QDBusConnection::systemBus();
    QtMainQueue queue;
    ThreadSerialQueue background{queue, "test"};
    LinuxPowerSources sources{systemBus, queue, background, "/nonexistent"};
    LinuxAppearance appearance{sessionBus, {[] { return false; }, [] { return true; }, [](std::optional<bool>) {}}};
    LinuxPowerAssertions power{sessionBus, systemBus, queue};
    LinuxSessionEvents events{sessionBus, systemBus, queue, background, "/nonexistent"};
    LinuxUserNotifications notifications{sessionBus};
    FakeFilePanels otherwise;
    PortalFilePanels panels{sessionBus, otherwise};
};

TEST_F(LyingServicesTest, NoSignalOfAWrongShapeEndsAnyOfUsAndTheNextRightOneIsHeard)
{
    std::vector<ScreenPresence> presences;
    const auto token = events.observe([&](ScreenPresence presence) { presences.push_back(presence); });
    const auto open = panels.chooseFolder({}, [](const auto&) {});
    appearance.prime(QDeadlineTimer(100ms));
    ASSERT_TRUE(waitFor([&] { return !desktop.token.isEmpty(); }));
    for (const auto& body : wrongBodies())
        tellEverything(body);
    runEventsFor(200ms);
    const auto present = [](const char* interface, const QVariantMap& map) {
        return QVariantList{QString::fromLatin1(interface), map, QStringList()};
    };
    system.tell(displayDevice, properties, changed,
                present("org.freedesktop.UPower.Device",
                        {{QStringLiteral("Percentage"), 19.6}, {QStringLiteral("IsPresent"), true}}));
    system.tell(upower, properties, changed, present("org.freedesktop.UPower", {{QStringLiteral("OnBattery"), true}}));
    EXPECT_TRUE(waitFor([&] { return sources.first().has_value(); }));
    EXPECT_EQ(sources.first()->currentCapacity, 1960);
    for (const auto nonsense : {std::nan(""), -std::numeric_limits<double>::infinity(), 1e300, -0.1, 100.1})
        system.tell(displayDevice, properties, changed,
                    present("org.freedesktop.UPower.Device", {{QStringLiteral("Percentage"), nonsense}}));
    runEventsFor(100ms);
    EXPECT_EQ(sources.first()->currentCapacity, 1960);
    desktop.tell(portalPath, "org.freedesktop.portal.Settings", "SettingChanged",
                 {QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                  QVariant::fromValue(QDBusVariant(1u))});
    EXPECT_TRUE(waitFor([&] { return appearance.isDark(); }));
    const auto hears = [&](ScreenPresence presence) {
        return waitFor([&] { return !presences.empty() && presences.back() == presence; });
    };
    // A lone truth value is what the savers do send.
    EXPECT_TRUE(hears(ScreenPresence::asleep));
    for (const auto* saver : {"gnome", "cinnamon", "mate"})
        desktop.tell("/", ("org." + std::string(saver) + ".ScreenSaver").c_str(), "ActiveChanged", {false});
    EXPECT_TRUE(hears(ScreenPresence::awake));
    system.tell(session, properties, changed,
                present("org.freedesktop.login1.Session", {{QStringLiteral("LockedHint"), true}}));
    EXPECT_TRUE(hears(ScreenPresence::asleep));
}

TEST_F(LyingServicesTest, NoAnswerOfAWrongShapeEndsAnyOfUs)
{
    const auto bodies = wrongBodies();
    for (int i = 0; i < bodies.size(); ++i) {
        desktop.lie = system.lie = bodies.at(i);
        // They live on this very thread, so that a question that waits for them gets no answer in its time.
        const auto created =
            i % 16 == 0 ? power.create("NoIdleSleepAssertion", 255, "Manual mode") : PowerAssertions::Created{-1, 0};
        notifications.post({"a", "A", "b"});
        notifications.removeDelivered({"a"});
        const auto folder = panels.chooseFolder({}, [](const auto&) {});
        const auto file = panels.chooseFile({}, [](const auto&) {});
        appearance.prime(QDeadlineTimer(1ms));
        sources.prime(QDeadlineTimer(1ms));
        runEventsFor(5ms);
        power.release(created.id);
    }
    EXPECT_GT(system.answers, bodies.size());
    EXPECT_GT(desktop.answers, 3 * bodies.size());
}

TEST(DBusValues, AValueIsReadWhenItsSignatureIsTheRightOneAndNeverConverted)
{
    registerTypes();
    EXPECT_EQ(valueOf<bool>(nested(true, 3)), true);
    EXPECT_EQ(valueOf<bool>(1), std::nullopt);
    EXPECT_EQ(valueOf<bool>(QStringLiteral("true")), std::nullopt);
    EXPECT_EQ(valueOf<uint>(7u), 7u);
    EXPECT_EQ(valueOf<uint>(7), std::nullopt);
    EXPECT_EQ(valueOf<double>(7u), std::nullopt);
    EXPECT_EQ(valueOf<QString>(QVariant()), std::nullopt);
    EXPECT_EQ(valueOf<QVariantMap>(QStringList()), std::nullopt);
    EXPECT_EQ(memberOf<bool>({{QStringLiteral("a"), true}}, QStringLiteral("b")), std::nullopt);
}

} // namespace

} // namespace orrinvale
