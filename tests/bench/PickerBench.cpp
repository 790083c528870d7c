// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ThreadSerialQueue.h"
#include "orrinvale/AppPicker.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/LinuxInstalledApplications.h"
#include "platform/qt/QtMainQueue.h"
#include "tests/bench/Bench.h"

#include <QCoreApplication>
#include <QEventLoop>
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

// The picker on real desktop entries; what it does not use is not there.
struct Subject {
    explicit Subject(const std::filesystem::path& folder) : installed({folder}) {}

    FakePlatform fake;
    QtMainQueue queue;
    ThreadSerialQueue background{"background"};
    LinuxInstalledApplications installed;
    Platform platform = platformOf(*this);

    static Platform platformOf(Subject& self)
    {
        const auto rest = self.fake.platform();
        return {self.queue,
                rest.serialQueues,
                self.background,
                rest.clock,
                rest.applicationSupport,
                rest.appearance,
                rest.cpuCounters,
                rest.folderWatcher,
                self.installed,
                rest.loginItem,
                rest.mediaDevices,
                rest.networkCounters,
                rest.powerAssertions,
                rest.powerSources,
                rest.processStatus,
                rest.runningApplications,
                rest.sessionEvents,
                rest.userDefaults,
                rest.userNotifications};
    }

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

// Typed letter by letter and taken back; every key is a sample.
bench::Samples keys(AppPicker& picker)
{
    bench::Samples samples;
    const std::string typed = "tool 29";
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t length = 1; length <= typed.size(); ++length)
            samples.push_back(bench::microsecondsOf([&] { picker.setSearchText(typed.substr(0, length)); }));
        insist(picker.rowCount() == 111, "the search found other rows than there are"); // 29, 290 to 299, 2900 to 2999
        samples.push_back(bench::microsecondsOf([&] { picker.setSearchText(""); }));
        insist(picker.rowCount() == entryCount, "an empty search did not show every row");
    }
    return samples;
}

} // namespace

} // namespace orrinvale

int main(int argc, char** argv)
{
    using namespace orrinvale;
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    writeEntries(folder.path().toStdString());
    Subject subject(folder.path().toStdString());
    bench::Samples untilListed, mainThread;
    std::unique_ptr<AppPicker> picker;
    for (int round = 0; round < rounds; ++round) {
        const auto mainBefore = bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID);
        untilListed.push_back(bench::microsecondsOf([&] { picker = subject.loadedPicker(); }));
        mainThread.push_back(bench::processorMicroseconds(CLOCK_THREAD_CPUTIME_ID) - mainBefore);
        insist(picker->rowCount() == entryCount, "the picker did not list every entry");
    }
    bench::report("3,000 entries, until listed", untilListed);
    bench::report("3,000 entries, main thread", mainThread);
    bench::report("3,000 entries, key in the search", keys(*picker));
}
