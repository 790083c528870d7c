// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusNotifierMenu.h"

#include <QDBusArgument>
#include <QDBusMetaType>

namespace orrinvale
{

namespace
{

constexpr auto theMenuItself = 0;
constexpr auto revision = 1U; // there is never another one

} // namespace

static QDBusArgument& operator<<(QDBusArgument& out, const NotifierMenuLayout& layout)
{
    out.beginStructure();
    out << layout.id << layout.properties << layout.children;
    out.endStructure();
    return out;
}

static const QDBusArgument& operator>>(const QDBusArgument& in, NotifierMenuLayout& layout)
{
    in.beginStructure();
    in >> layout.id >> layout.properties >> layout.children;
    in.endStructure();
    return in;
}

static QDBusArgument& operator<<(QDBusArgument& out, const NotifierMenuProperties& entry)
{
    out.beginStructure();
    out << entry.id << entry.properties;
    out.endStructure();
    return out;
}

static const QDBusArgument& operator>>(const QDBusArgument& in, NotifierMenuProperties& entry)
{
    in.beginStructure();
    in >> entry.id >> entry.properties;
    in.endStructure();
    return in;
}

static QDBusArgument& operator<<(QDBusArgument& out, const NotifierMenuEvent& event)
{
    out.beginStructure();
    out << event.id << event.name << event.data << event.timestamp;
    out.endStructure();
    return out;
}

static const QDBusArgument& operator>>(const QDBusArgument& in, NotifierMenuEvent& event)
{
    in.beginStructure();
    in >> event.id >> event.name >> event.data >> event.timestamp;
    in.endStructure();
    return in;
}

StatusNotifierMenu::StatusNotifierMenu(const QDBusConnection& bus, QString path, StatusMenu entries)
    : m_bus(bus), m_path(std::move(path)), m_entries(std::move(entries))
{
    qDBusRegisterMetaType<NotifierMenuLayout>();
    qDBusRegisterMetaType<NotifierMenuProperties>();
    qDBusRegisterMetaType<QList<NotifierMenuProperties>>();
    qDBusRegisterMetaType<NotifierMenuEvent>();
    qDBusRegisterMetaType<QList<NotifierMenuEvent>>();
    m_bus.registerObject(m_path, this,
                         QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSlots |
                             QDBusConnection::ExportAllSignals);
}

StatusNotifierMenu::~StatusNotifierMenu()
{
    m_bus.unregisterObject(m_path);
}

bool StatusNotifierMenu::contains(int id) const
{
    return id >= theMenuItself && id <= static_cast<int>(m_entries.size());
}

QVariantMap StatusNotifierMenu::propertiesOf(int id) const
{
    if (id == theMenuItself)
        return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    return {{QStringLiteral("label"), m_entries[static_cast<std::size_t>(id) - 1].title}};
}

NotifierMenuLayout StatusNotifierMenu::layoutOf(int id, int depth) const
{
    NotifierMenuLayout layout{id, propertiesOf(id), {}};
    if (id == theMenuItself && depth != 0)
        for (int entry = 1; contains(entry); ++entry)
            layout.children.append(QVariant::fromValue(layoutOf(entry, 0)));
    return layout;
}

void StatusNotifierMenu::refuse(int id) const
{
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("there is no entry %1").arg(id));
}

// All properties, whichever are asked for: there is one.
uint StatusNotifierMenu::GetLayout(int parent, int depth, const QStringList&, NotifierMenuLayout& layout)
{
    if (contains(parent))
        layout = layoutOf(parent, depth);
    else
        refuse(parent);
    return revision;
}

QList<NotifierMenuProperties> StatusNotifierMenu::GetGroupProperties(const QList<int>& ids, const QStringList&)
{
    QList<NotifierMenuProperties> entries;
    for (const auto id : ids)
        if (contains(id))
            entries.append({id, propertiesOf(id)});
    return entries;
}

QDBusVariant StatusNotifierMenu::GetProperty(int id, const QString& name)
{
    const auto value = contains(id) ? propertiesOf(id).value(name) : QVariant();
    if (!value.isValid())
        refuse(id);
    return QDBusVariant(value.isValid() ? value : QString());
}

void StatusNotifierMenu::Event(int id, const QString& name, const QDBusVariant&, uint)
{
    if (!contains(id))
        return refuse(id);
    if (id == theMenuItself || name != QStringLiteral("clicked"))
        return;
    // In a turn of its own: the tray is answered even when the choice ends the application.
    if (const auto choose = m_entries[static_cast<std::size_t>(id) - 1].choose)
        QMetaObject::invokeMethod(this, choose, Qt::QueuedConnection);
}

QList<int> StatusNotifierMenu::EventGroup(const QList<NotifierMenuEvent>& events)
{
    QList<int> unknown;
    for (const auto& event : events)
        if (contains(event.id))
            Event(event.id, event.name, event.data, event.timestamp);
        else
            unknown.append(event.id);
    return unknown;
}

// Whether it must be asked for anew before it is shown.
bool StatusNotifierMenu::AboutToShow(int id)
{
    if (!contains(id))
        refuse(id);
    return false;
}

QList<int> StatusNotifierMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& unknown)
{
    for (const auto id : ids)
        if (!contains(id))
            unknown.append(id);
    return {};
}

} // namespace orrinvale
