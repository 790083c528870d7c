// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "layer_shell/LayerSurface.h"
#include "orrinvale/AppDelegate.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ApplicationPalette.h"
#include "orrinvale/QuitRequests.h"
#include "orrinvale/WidgetFilePanels.h"
#include "orrinvale/WidgetInterface.h"
#include "platform/TimeZone.h"
#include "text/LocalCalendar.h"
#include "text/UserLocale.h"

#include "HostPlatform.h" // of the operating system that it is built for

#include <QApplication>

using namespace orrinvale;

int main(int argc, char** argv)
{
    allowLayerSurfaces();
    HostProcess process(argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orrinvale"));
    QApplication::setDesktopFileName(QStringLiteral("orrinvale"));
    QApplication::setQuitOnLastWindowClosed(false);
    // Not quit(): a window that refuses to be closed could veto that.
    const auto end = [] { QCoreApplication::exit(); };
    process.onTermination(end);
    const QuitRequests quitRequests(application, end);

    if (!process.isTheOnlyOne())
        return 0;

    WidgetFilePanels widgetPanels;
    HostPlatform host({isPaletteDark, applyApplicationPalette, widgetPanels});
    const auto platform = host.platform();
    host.prime();
    provideUserLocale(host.userLocale().dates(), host.userLocale().collation());
    const auto timeZone = platform.timeZone.observeChanges([] { LocalCalendar::user().readTimeZone(); });
    AppSettings::provide(platform, LocalCalendar::user());
    WidgetInterface interface(AppSettings::shared(), platform, LocalCalendar::user(), host.filePanels(),
                              HostPlatform::partWithoutPanels, end);
    process.onAnotherStart([&] { interface.comeForward(); });
    AppDelegate delegate(platform, AppSettings::shared(), LocalCalendar::user(), interface);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &application,
                     [&] { delegate.applicationWillTerminate(); });
    delegate.applicationDidFinishLaunching();
    process.onBetterStart(platform.mainQueue, end);
    const auto status = QApplication::exec();
    delegate.applicationWillTerminate();
    host.flush();
    process.end(status);
}
