// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tray/StatusMenu.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace orrinvale
{

// What the protocol calls them.
struct NotifierMenuLayout {
    int id;
    QVariantMap properties;
    QVariantList children; // NotifierMenuLayouts
};
struct NotifierMenuProperties {
    int id;
    QVariantMap properties;
};
struct NotifierMenuEvent {
    int id;
    QString name;
    QDBusVariant data;
    uint timestamp;
};

// A flat menu on the session bus for trays that draw it themselves. It is what it was made with as long as it lives.
// Main thread. https://github.com/AyatanaIndicators/libdbusmenu/blob/master/libdbusmenu-glib/dbus-menu.xml
class StatusNotifierMenu final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    StatusNotifierMenu(const QDBusConnection& bus, QString path, StatusMenu entries);
    ~StatusNotifierMenu() override;

    uint version() const { return 3; } // of the protocol
    QString status() const { return QStringLiteral("normal"); }
    QString textDirection() const { return QStringLiteral("ltr"); } // as all of our texts
    QStringList iconThemePath() const { return {}; }

public Q_SLOTS: // named as the protocol names them; a depth below zero is without end
    uint GetLayout(int parent, int depth, const QStringList& names, orrinvale::NotifierMenuLayout& layout);
    QList<orrinvale::NotifierMenuProperties> GetGroupProperties(const QList<int>& ids, const QStringList& names);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& name, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<orrinvale::NotifierMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& unknown);

Q_SIGNALS:
    void LayoutUpdated(uint revision, int parent);

private:
    bool contains(int id) const;
    QVariantMap propertiesOf(int id) const;
    NotifierMenuLayout layoutOf(int id, int depth) const;
    void refuse(int id) const;

    QDBusConnection m_bus;
    QString m_path;
    StatusMenu m_entries; // with the ids from 1 on; 0 is the menu itself
};

} // namespace orrinvale

Q_DECLARE_METATYPE(orrinvale::NotifierMenuLayout)
Q_DECLARE_METATYPE(orrinvale::NotifierMenuProperties)
Q_DECLARE_METATYPE(orrinvale::NotifierMenuEvent)
