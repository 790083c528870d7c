// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "layer_shell/LayerSurface.h"
#include "orrinvale/AppDelegate.h"
#include "orrinvale/AppSettings.h"
#include "orrinvale/ApplicationPalette.h"
#include "orrinvale/WidgetFilePanels.h"
#include "orrinvale/WidgetInterface.h"
#include "platform/TimeZone.h"
#include "platform/linux/CharacterEncoding.h"
#include "platform/linux/Compositing.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/Panels.h"
#include "platform/linux/PortalFilePanels.h"
#include "platform/linux/SessionBusGuard.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/TerminationSignals.h"
#include "text/LocalCalendar.h"

#include <QApplication>

#include <cstdio>
#include <unistd.h>

using namespace orrinvale;

namespace
{

std::filesystem::path instanceFolder()
{
    LinuxApplicationSupport support;
    return support.runtimeDirectory().value_or(support.temporaryDirectory());
}

} // namespace

int main(int argc, char** argv)
{
    useUTF8();
    allowLayerSurfaces();
    TerminationSignals termination;
    SessionBusGuard sessionBus;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orrinvale"));
    QApplication::setDesktopFileName(QStringLiteral("orrinvale"));
    QApplication::setQuitOnLastWindowClosed(false);
    // Not quit(): a window that refuses to be closed could veto that.
    const auto end = [] { QCoreApplication::exit(); };
    termination.listen(end);

    SingleInstance instance(instanceFolder());
    if (instance.claim() == SingleInstance::Role::second)
        return 0;

    LinuxPlatform desktop({isPaletteDark, isCompositing, applyApplicationPalette});
    const auto platform = desktop.platform();
    desktop.prime();
    const auto timeZone = platform.timeZone.observeChanges([] { LocalCalendar::user().readTimeZone(); });
    AppSettings::provide(platform, LocalCalendar::user());
    WidgetFilePanels widgetPanels;
    PortalFilePanels filePanels(QDBusConnection::sessionBus(), widgetPanels);
    WidgetInterface interface(AppSettings::shared(), platform, LocalCalendar::user(), filePanels, partWithoutPanels,
                              end);
    instance.listen([&] { interface.comeForward(); });
    AppDelegate delegate(platform, AppSettings::shared(), LocalCalendar::user(), interface);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &application,
                     [&] { delegate.applicationWillTerminate(); });
    delegate.applicationDidFinishLaunching();
    sessionBus.listen(platform.mainQueue, end);
    const auto status = QApplication::exec();
    delegate.applicationWillTerminate();
    desktop.flush();
    instance.stop();

    // Nothing waits for background work at the end, and what it uses must not be taken away from under it: the process
    // goes as a whole. Files are replaced atomically, and the services free what is bound to our connection.
    std::fflush(nullptr);
    sessionBus.beginAnew(argv);
    ::_exit(status);
}
