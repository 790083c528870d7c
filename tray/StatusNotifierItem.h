// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tray/StatusNotifierMenu.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QPoint>

#include <functional>

namespace orrinvale
{

// One size of the item's picture as the protocol carries it: ARGB, in network byte order.
struct NotifierPixmap {
    int width;
    int height;
    QByteArray pixels;
};
using NotifierPixmaps = QList<NotifierPixmap>;
NotifierPixmaps notifierPixmaps(const QIcon& icon);

struct NotifierToolTip {
    QString iconName;
    NotifierPixmaps pixmaps;
    QString title; // plain text to some hosts and markup to others
    QString text;  // markup
};
NotifierToolTip notifierToolTip(const QString& plainText);

// Our item by the StatusNotifierItem protocol, on the session bus. It has no menu, not even the name of one: some hosts
// then pass a right click on instead of showing an empty menu, which Qt's own item makes them do. Main thread.
// https://www.freedesktop.org/wiki/Specifications/StatusNotifierItem/
class StatusNotifierItem : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ name CONSTANT)
    Q_PROPERTY(QString Title READ name CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ isMenu CONSTANT)
    Q_PROPERTY(QString IconName READ noName CONSTANT)
    Q_PROPERTY(QString OverlayIconName READ noName CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ noName CONSTANT)
    Q_PROPERTY(orrinvale::NotifierPixmaps IconPixmap READ iconPixmap NOTIFY NewIcon)
    Q_PROPERTY(orrinvale::NotifierToolTip ToolTip READ toolTip NOTIFY NewToolTip)

public:
    explicit StatusNotifierItem(const QDBusConnection& bus);
    ~StatusNotifierItem() override;

    // Tells the tray of it; each tray that comes must be told anew.
    void registerWithTray();
    void setIcon(const QIcon& icon);
    // Plain text.
    void setToolTip(const QString& text);

    QString category() const { return QStringLiteral("ApplicationStatus"); }
    QString name() const { return QStringLiteral("orrinvale"); }
    QString status() const { return QStringLiteral("Active"); }
    int windowId() const { return 0; }
    bool isMenu() const { return false; }
    QString noName() const { return {}; }
    const NotifierPixmaps& iconPixmap() const { return m_pixmaps; }
    const NotifierToolTip& toolTip() const { return m_toolTip; }

    // So that no later window spends the token of a click that led to none.
    static void forgetActivationToken();

    // Left and right click alike; with the place of the click as the host tells it.
    std::function<void(const QPoint& place)> onClick;

public Q_SLOTS
    : // named as the protocol names them; the position is that of the click, in coordinates of the host's choice
    void Activate(int x, int y);
    void ContextMenu(int x, int y);
    void SecondaryActivate(int, int) {}
    void Scroll(int, const QString&) {}
    void ProvideXdgActivationToken(const QString& token);

Q_SIGNALS:
    void NewIcon();
    void NewToolTip();
    void NewStatus(const QString& status);

private:
    void click(const QPoint& place);

    QDBusConnection m_bus;
    NotifierPixmaps m_pixmaps;
    NotifierToolTip m_toolTip;
};

// The same with a menu, for the one host that shows no item without.
class StatusNotifierItemWithMenu final : public StatusNotifierItem
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    StatusNotifierItemWithMenu(const QDBusConnection& bus, StatusMenu menu);

    QDBusObjectPath menu() const;

private:
    StatusNotifierMenu m_menu;
};

} // namespace orrinvale

Q_DECLARE_METATYPE(orrinvale::NotifierPixmap)
Q_DECLARE_METATYPE(orrinvale::NotifierToolTip)
