// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppDelegate.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ApplicationInterface.h"
#include "orrinvale/WakeEngine.h"
#include "platform/fake/FakeFilePanels.h"
#include "text/LocalCalendar.h"

#include "HostPlatform.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

using namespace orrinvale;

namespace
{

// In the place of the tray: the mode is chosen on standard input, "S" for Smart and "O" for Off.
class ModeSwitch final : public ApplicationInterface
{
public:
    void showOnboarding() override {}
    bool canShowFeedback() const override { return false; }
    void showFeedback() override {}
    void showStatusItem(WakeEngine& engine) override
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [&engine] {
            char choice = 0;
            if (::read(STDIN_FILENO, &choice, 1) != 1)
                return QCoreApplication::quit();
            engine.mode.set(choice == 'S' ? WakeMode::smart : WakeMode::off);
            engine.evaluate();
        });
    }

private:
    QSocketNotifier m_notifier{STDIN_FILENO, QSocketNotifier::Read};
};

} // namespace

// The whole application but for its windows, with every real adapter.
int main(int argc, char** argv)
{
    HostProcess process(argv);
    QCoreApplication application(argc, argv);
    process.onTermination([] { QCoreApplication::quit(); });
    FakeFilePanels noPanels;
    HostPlatform host({[] { return false; }, [](std::optional<bool>) {}, noPanels});
    const auto platform = host.platform();
    host.prime();
    AppSettings::provide(platform, LocalCalendar::user());
    ModeSwitch interface;
    AppDelegate delegate(platform, AppSettings::shared(), LocalCalendar::user(), interface);
    delegate.applicationDidFinishLaunching();
    const auto status = QCoreApplication::exec();
    delegate.applicationWillTerminate();
    process.end(status);
}
