// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DBus.h"
#include "tests/bench/Bench.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusPendingCall>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

const auto logind = QStringLiteral("org.freedesktop.login1");
const auto managerPath = QStringLiteral("/org/freedesktop/login1");
const auto managerInterface = QStringLiteral("org.freedesktop.login1.Manager");
constexpr int rounds = 200;

[[noreturn]] void giveUp(const char* what)
{
    fmt::print(stderr, "road_bench: {}\n", what);
    std::exit(1);
}

// From a partial file's appearance to logind's announcement that idleness is inhibited; beside it, in turns, the same
// from a bare call of Inhibit. Both ends are seen by this process, so that both ways are measured with the same stick.
class Road
{
public:
    explicit Road(const QString& program) : m_partial(std::string(std::getenv("HOME")) + "/Downloads/film.mkv.part")
    {
        m_application.setProcessChannelMode(QProcess::ForwardedChannels);
        m_application.start(program);
        runEventsFor(1500ms); // its start is over by then
    }
    ~Road()
    {
        m_application.closeWriteChannel();
        m_application.waitForFinished(2000);
    }

    void run()
    {
        for (int round = 0; round < rounds; ++round) {
            m_bare.push_back(bareCall());
            pause();
            m_ours.push_back(fileAppears());
            if (round == 0 && !isOurs())
                giveUp("the inhibitor is not the application's");
            letGo();
        }
        bench::report("bare Inhibit call", m_bare);
        bench::report("partial file -> inhibitor", m_ours);
    }

private:
    void takeChange(const QDBusMessage& message)
    {
        const auto blocked = mapOf(message, 1).value(QStringLiteral("BlockInhibited"));
        if (blocked.isValid())
            m_isInhibited = blocked.toString().split(u':').contains(QStringLiteral("idle"));
    }

    void waitUntil(bool inhibited, const char* what)
    {
        QTimer deadline;
        deadline.setSingleShot(true);
        deadline.start(3s);
        while (m_isInhibited != inhibited) {
            if (!deadline.isActive())
                giveUp(what);
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    static void runEventsFor(std::chrono::milliseconds duration)
    {
        QEventLoop loop;
        QTimer::singleShot(duration, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }

    // Nobody is warmer than the other, and no phase of the application's timers is preferred.
    static void pause() { runEventsFor(std::chrono::milliseconds(30 + std::rand() % 20)); }

    double bareCall()
    {
        auto call = QDBusMessage::createMethodCall(logind, managerPath, managerInterface, QStringLiteral("Inhibit"));
        call << QStringLiteral("idle") << QStringLiteral("bench") << QStringLiteral("yardstick")
             << QStringLiteral("block");
        QDBusMessage reply;
        const auto taken = bench::microsecondsOf([&] {
            auto pending = m_bus.asyncCall(call);
            waitUntil(true, "logind does not answer the bare call");
            pending.waitForFinished();
            reply = pending.reply();
        });
        reply = {};
        waitUntil(false, "the bare call's lock stays");
        return taken;
    }

    double fileAppears()
    {
        const auto taken = bench::microsecondsOf([&] {
            std::ofstream(m_partial) << "x";
            waitUntil(true, "a partial file gives no inhibitor");
        });
        return taken;
    }

    bool isOurs()
    {
        auto call =
            QDBusMessage::createMethodCall(logind, managerPath, managerInterface, QStringLiteral("ListInhibitors"));
        const auto list = m_bus.call(call).arguments().value(0).value<QDBusArgument>();
        QString what, who;
        list.beginArray();
        list.beginStructure();
        list >> what >> who;
        return what == QStringLiteral("idle") && who == QStringLiteral("orrinvale");
    }

    // Off, and back to Smart once the application has seen that the file is gone.
    void letGo()
    {
        m_application.write("O");
        waitUntil(false, "the mode Off leaves the inhibitor");
        std::filesystem::remove(m_partial);
        pause();
        m_application.write("S");
        pause();
        if (m_isInhibited)
            giveUp("held without a file");
    }

    const std::filesystem::path m_partial;
    QDBusConnection m_bus = QDBusConnection::systemBus();
    bool m_isInhibited = false;
    DBusSignal m_changes{m_bus,
                         logind,
                         managerPath,
                         QStringLiteral("org.freedesktop.DBus.Properties"),
                         QStringLiteral("PropertiesChanged"),
                         [this](const QDBusMessage& message) { takeChange(message); }};
    QProcess m_application;
    bench::Samples m_bare, m_ours;
};

} // namespace

} // namespace orrinvale

// Inside a bed with logind: road_bench headless_application
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    orrinvale::Road(QString::fromLocal8Bit(argv[argc - 1])).run();
}
