// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ThreadSerialQueue.h"
#include "kit/TextField.h"
#include "orrinvale/AppPickerList.h"
#include "orrinvale/AppPickerSheet.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxInstalledApplications.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/bench/Bench.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>

#include <cstdlib>
#include <fstream>

namespace orrinvale
{

namespace
{

constexpr int entryCount = 3000;
constexpr int translations = 60;
constexpr int rounds = 15;

void writeEntries(const std::filesystem::path& folder)
{
    for (int i = 0; i < entryCount; ++i) {
        std::ofstream file(folder / fmt::format("org.example.Application{}.desktop", i));
        file << "[Desktop Entry]\nType=Application\nExec=/bin/sh %U\nTryExec=/bin/sh\nCategories=Utility;\n"
             << fmt::format("Icon=org.example.Application{0}\nName={1} Tool {0}\n", i, char('A' + i * 7 % 26));
        for (int language = 0; language < translations; ++language)
            file << fmt::format("Name[x{0}]=Werkzeug {1}\nComment[x{0}]=What the program may be good for\n", language,
                                i);
    }
}

// Made up but for its queues and its desktop entries.
struct Machine : FakePlatform {
    explicit Machine(const std::filesystem::path& folder) : installedApplications({folder}) {}

    QtMainQueue mainQueue;
    ThreadSerialQueue background{mainQueue, "background"};
    ThreadSerialQueue applicationFiles{mainQueue, "applicationfiles"};
    LinuxInstalledApplications installedApplications;
};

// The picker on the machine.
struct Subject {
    explicit Subject(const std::filesystem::path& folder) : machine(folder) {}

    Machine machine;
    Platform platform = platformOf(machine);

    std::unique_ptr<AppPicker> loadedPicker()
    {
        QEventLoop loop;
        auto picker = std::make_unique<AppPicker>(platform, "de_DE");
        picker->onLoaded = [&] { loop.quit(); };
        loop.exec();
        return picker;
    }
};

void insist(bool condition, const char* what)
{
    if (condition)
        return;
    fmt::print(stderr, "picker_bench: {}\n", what);
    std::exit(1);
}

// From the key to the painted rows: letters that are typed, and the search that is emptied again.
bench::Samples keys(Subject& subject)
{
    subject.machine.appearance.motionIsReduced = true;
    QWidget window;
    window.resize(540, 560);
    AppPickerSheet sheet(subject.platform, "de_DE", Look::light, &window);
    window.show();
    while (sheet.picker().isLoading())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    auto& line = sheet.searchField().line();
    const auto press = [&](int key, const QString& text) {
        return bench::microsecondsOf([&] {
            QKeyEvent event(QEvent::KeyPress, key, {}, text);
            QCoreApplication::sendEvent(&line, &event);
            QCoreApplication::processEvents();
            sheet.searchField().repaint(); // now, whatever rate the window system is painted at
            sheet.list().viewport()->repaint();
        });
    };
    bench::Samples samples;
    for (int round = 0; round < rounds; ++round) {
        for (const auto letter : QStringLiteral("tool 29"))
            samples.push_back(press(letter.toUpper().unicode(), QString(letter)));
        insist(sheet.picker().rowCount() == 111, "the search found other rows"); // 29, 290 to 299, 2900 to 2999
        line.selectAll();
        samples.push_back(press(Qt::Key_Delete, {}));
        insist(sheet.picker().rowCount() == entryCount, "an empty search did not show every row");
    }
    return samples;
}

} // namespace

} // namespace orrinvale

int main(int argc, char** argv)
{
    using namespace orrinvale;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(resources);
    const QTemporaryDir folder;
    writeEntries(folder.path().toStdString());
    Subject subject(folder.path().toStdString());
    bench::Samples untilListed, mainThread;
    for (int round = 0; round < rounds; ++round) {
        const auto mainBefore = bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID);
        std::unique_ptr<AppPicker> picker;
        untilListed.push_back(bench::microsecondsOf([&] { picker = subject.loadedPicker(); }));
        mainThread.push_back(bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID) - mainBefore);
        insist(picker->rowCount() == entryCount, "the picker did not list every entry");
    }
    bench::report("3,000 entries, until listed", untilListed);
    bench::report("3,000 entries, main thread", mainThread);
    bench::report("3,000 entries, key in the search", keys(subject));
}
