// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ThreadSerialQueue.h"
#include "kit/ContinuousSlider.h"
#include "orrinvale/ActivityLogView.h"
#include "orrinvale/ActivityLogWindowController.h"
#include "orrinvale/AppIconView.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/HeatmapView.h"
#include "orrinvale/MenuBarController.h"
#include "orrinvale/Popover.h"
#include "orrinvale/SensitivityRow.h"
#include "orrinvale/SettingsWindowController.h"
#include "orrinvale/WakeEngine.h"
#include "platform/fake/FakeFilePanels.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxUserDefaults.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/bench/Bench.h"
#include "tests/shots/History.h"
#include "text/LocalCalendar.h"
#include "tray/DesktopStatusItem.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QImage>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdlib>
#include <fstream>

namespace orrinvale
{

namespace
{

constexpr auto openings = 20;
constexpr auto manyOpenings = 100;
constexpr auto watched = std::chrono::seconds(5);

[[noreturn]] void giveUp(const char* what)
{
    fmt::print(stderr, "window_bench: {}\n", what);
    std::exit(1);
}

double pssKilobytes()
{
    std::ifstream file("/proc/self/smaps_rollup");
    for (std::string word; file >> word;) {
        if (word == "Pss:" && file >> word)
            return std::stod(word);
    }
    giveUp("no Pss in /proc/self/smaps_rollup");
}

void runEvents(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

// Notices the first painting of any window after `watch`.
class FirstFrame final : public QObject
{
public:
    FirstFrame() { qApp->installEventFilter(this); }

    template <typename Open>
    double microsecondsUntil(Open open)
    {
        m_isPainted = false;
        return bench::microsecondsOf([&] {
            open();
            const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
            while (!m_isPainted && std::chrono::steady_clock::now() < end)
                QCoreApplication::processEvents();
            if (!m_isPainted)
                giveUp("a window was not painted");
            QGuiApplication::sync(); // the display has it
        });
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::UpdateRequest || event->type() == QEvent::Paint)
            m_isPainted = m_isPainted || (object->isWidgetType() && static_cast<QWidget*>(object)->isWindow());
        return false;
    }

private:
    bool m_isPainted = false;
};

// Made up but for its queues and its settings file.
struct Machine : FakePlatform {
    explicit Machine(const std::string& folder) : userDefaults(folder + "/settings.json") {}

    QtMainQueue mainQueue;
    ThreadSerialQueue background{mainQueue, "background"};
    ThreadSerialQueue applicationFiles{mainQueue, "applicationfiles"};
    LinuxUserDefaults userDefaults;
};

// The windows over the machine.
struct Subject {
    explicit Subject(const std::string& folder) : machine(folder)
    {
        machine.time.setWallClock(madeUpNow());
        engine.activityLog.set(madeUpLog(calendar));
        engine.appUsageTracker().days.set(madeUpUsage(calendar));
        engine.activeSignals.set(madeUpSignals(3, madeUpNow()));
        engine.state.set(WakeState::awake("a reason"));
    }

    Machine machine;
    Platform platform = platformOf(machine);
    LocalCalendar calendar{"UTC", "en_US"};
    AppSettings settings{platform, calendar};
    WakeEngine engine{platform, settings, calendar};
    DesktopStatusItem statusItem{machine.mainQueue};
    FakeFilePanels panels;
    MenuBarController menuBar{engine, settings, platform, statusItem, &QScreen::availableGeometry, {}};
};

// The first opening, with all that is loaded for it, apart from the later ones.
template <typename Open, typename Close>
void reportOpenings(FirstFrame& frame, const char* window, Open open, Close close)
{
    const auto opening = [&] {
        const auto taken = frame.microsecondsUntil(open);
        runEvents(std::chrono::milliseconds(100));
        close();
        runEvents(std::chrono::milliseconds(50));
        return taken;
    };
    bench::report(fmt::format("{}: first opening", window), {opening()});
    bench::Samples later;
    for (int round = 0; round < openings; ++round)
        later.push_back(opening());
    bench::report(fmt::format("{}: later opening", window), later);
}

template <typename Open, typename Close>
void reportGrowth(const char* window, Open open, Close close)
{
    const auto before = pssKilobytes();
    for (int round = 0; round < manyOpenings; ++round) {
        open();
        runEvents(std::chrono::milliseconds(20));
        close();
        runEvents(std::chrono::milliseconds(5));
    }
    bench::report(fmt::format("{}: growth in kB", window), {pssKilobytes() - before});
}

void benchPopover(Subject& subject, FirstFrame& frame)
{
    const auto before = pssKilobytes();
    const auto open = [&] { subject.menuBar.comeForward(); };
    const auto close = [&] { subject.menuBar.popover()->closeByOwner(); };
    reportOpenings(frame, "popover", open, close);
    bench::report("popover: left behind in kB", {pssKilobytes() - before});
    reportGrowth("popover", open, close);
    open();
    runEvents(std::chrono::seconds(1));
    const auto cpu = bench::processorMicroseconds(CLOCK_PROCESS_CPUTIME_ID);
    runEvents(watched);
    bench::report("popover: CPU of the film", {(bench::processorMicroseconds(CLOCK_PROCESS_CPUTIME_ID) - cpu) /
                                               bench::Microseconds(watched).count()});
    close();
    runEvents(std::chrono::milliseconds(500));
    const auto idle = bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID);
    runEvents(watched);
    bench::report("popover: CPU after closing", {bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID) - idle});
}

void benchWindows(Subject& subject, FirstFrame& frame)
{
    std::unique_ptr<ActivityLogWindowController> log;
    std::unique_ptr<SettingsWindowController> settings;
    const auto openLog = [&] {
        if (!log)
            log = std::make_unique<ActivityLogWindowController>(subject.engine, subject.settings, subject.platform,
                                                                subject.calendar, subject.panels);
        log->showWindow();
    };
    const auto openSettings = [&] {
        const auto makeIcon = [&](const auto& id) { return new AppIconView(id, subject.platform, nullptr); };
        if (!settings)
            settings = std::make_unique<SettingsWindowController>(
                subject.settings, subject.platform, SettingsView::Surroundings{subject.panels, makeIcon, {}});
        settings->showWindow();
    };
    reportOpenings(frame, "activity log", openLog, [&] { log->window().close(); });
    reportOpenings(frame, "settings", openSettings, [&] { settings->window().close(); });
    reportGrowth(
        "windows",
        [&] {
            openLog();
            openSettings();
        },
        [&] {
            log->window().close();
            settings->window().close();
        });

    auto& heatmap = log->view().heatmapView();
    QImage image(heatmap.size(), QImage::Format_ARGB32_Premultiplied);
    bench::report("heatmap: painting", bench::measure(
                                           200, [] {}, [&] { heatmap.render(&image); }));

    openSettings();
    runEvents(std::chrono::milliseconds(200));
    auto& slider = settings->view().sensitivity().slider();
    double value = 0;
    bench::report("slider: one step of a drag", bench::measure(
                                                    200, [&] { value += 1.0 / 256; },
                                                    [&] {
                                                        slider.moveTo(value);
                                                        QCoreApplication::processEvents();
                                                    }));
}

} // namespace

} // namespace orrinvale

int main(int argc, char** argv)
{
    using namespace orrinvale;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir folder;
    Subject subject(folder.path().toStdString());
    FirstFrame frame;
    runEvents(std::chrono::seconds(1));
    benchPopover(subject, frame);
    benchWindows(subject, frame);
    std::_Exit(0);
}
