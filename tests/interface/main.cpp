// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFont>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

// The size at which the interface is drawn 1 : 1.
QFont usualFont()
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(13);
    return font;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir folder;
    makePrivate(folder.path());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(usualFont());
    return RUN_ALL_TESTS();
}
