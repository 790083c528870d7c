// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/Accessibility.h"
#include "tests/interface/InterfaceFixture.h"

#include <QApplication>
#include <QFont>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <initializer_list>

namespace
{

// Nothing of the user's own desktop, folders or services may reach the widgets under test.
void makePrivate(const QString& folder)
{
    for (const auto* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, folder.toUtf8());
    for (const auto* name : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
        qputenv(name, "unix:path=/nonexistent");
    for (const auto* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "QT_SCALE_FACTOR", "QT_FONT_DPI",
                             "XDG_CURRENT_DESKTOP"})
        qunsetenv(name);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsSet(orrinvale::scaleVariable))
        qputenv("QT_SCALE_FACTOR", qgetenv(orrinvale::scaleVariable));
}

// The size at which the interface is drawn 1 : 1.
QFont usualFont()
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(13);
    return font;
}

// What Qt warns of is a failure, except that the offscreen platform can do less than others.
void judge(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (message.startsWith(QStringLiteral("This plugin does not support")))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "Qt warns: " << message.toStdString();
    else
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir folder;
    makePrivate(folder.path());
    qInstallMessageHandler(judge);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(usualFont());
    orrinvale::installAccessibility();
    return RUN_ALL_TESTS();
}
