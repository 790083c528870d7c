// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

// The least that Widgets and a tray icon cost on this machine: the yardstick for memory and start.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QMenu menu;
    QObject::connect(menu.addAction(QStringLiteral("Quit")), &QAction::triggered, &application,
                     &QCoreApplication::quit);
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::darkGreen);
    QSystemTrayIcon icon{QIcon(pixmap)};
    icon.setContextMenu(&menu);
    icon.setToolTip(QStringLiteral("Idle"));
    icon.show();
    return QApplication::exec();
}
