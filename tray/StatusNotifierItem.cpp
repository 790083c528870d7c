// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusNotifierItem.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QImage>
#include <QtEndian>

namespace orrinvale
{

namespace
{

const auto objectPath = QStringLiteral("/StatusNotifierItem");
const auto menuPath = QStringLiteral("/StatusNotifierItem/Menu");
const auto tray = QStringLiteral("org.kde.StatusNotifierWatcher");
constexpr auto activationToken = "XDG_ACTIVATION_TOKEN"; // where Qt looks for it
constexpr auto longestToken = 4096; // bytes; desktops send some dozens, and it goes into the environment

} // namespace

static QDBusArgument& operator<<(QDBusArgument& out, const NotifierPixmap& pixmap)
{
    out.beginStructure();
    out << pixmap.width << pixmap.height << pixmap.pixels;
    out.endStructure();
    return out;
}

static const QDBusArgument& operator>>(const QDBusArgument& in, NotifierPixmap& pixmap)
{
    in.beginStructure();
    in >> pixmap.width >> pixmap.height >> pixmap.pixels;
    in.endStructure();
    return in;
}

static QDBusArgument& operator<<(QDBusArgument& out, const NotifierToolTip& toolTip)
{
    out.beginStructure();
    out << toolTip.iconName << toolTip.pixmaps << toolTip.title << toolTip.text;
    out.endStructure();
    return out;
}

static const QDBusArgument& operator>>(const QDBusArgument& in, NotifierToolTip& toolTip)
{
    in.beginStructure();
    in >> toolTip.iconName >> toolTip.pixmaps >> toolTip.title >> toolTip.text;
    in.endStructure();
    return in;
}

NotifierPixmaps notifierPixmaps(const QIcon& icon)
{
    NotifierPixmaps pixmaps;
    for (const auto& size : icon.availableSizes()) {
        const auto image = icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
        QByteArray pixels;
        pixels.reserve(image.sizeInBytes());
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const auto pixel = qToBigEndian(image.pixel(x, y));
                pixels.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
            }
        pixmaps.append({image.width(), image.height(), pixels});
    }
    return pixmaps;
}

// A title alone shows as it is, unless a host takes a name in it for markup; a text needs a title above it.
NotifierToolTip notifierToolTip(const QString& plainText)
{
    const auto escaped = plainText.toHtmlEscaped();
    if (escaped == plainText)
        return {{}, {}, plainText, {}};
    return {{}, {}, QStringLiteral("orrinvale"), escaped};
}

StatusNotifierItem::StatusNotifierItem(const QDBusConnection& bus) : m_bus(bus)
{
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<NotifierPixmaps>();
    qDBusRegisterMetaType<NotifierToolTip>();
    m_bus.registerObject(objectPath, this,
                         QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSlots |
                             QDBusConnection::ExportAllSignals);
}

StatusNotifierItem::~StatusNotifierItem()
{
    m_bus.unregisterObject(objectPath);
}

void StatusNotifierItem::registerWithTray()
{
    const auto call = QDBusMessage::createMethodCall(tray, QStringLiteral("/StatusNotifierWatcher"), tray,
                                                     QStringLiteral("RegisterStatusNotifierItem"));
    m_bus.send(QDBusMessage(call) << m_bus.baseService());
}

void StatusNotifierItem::setIcon(const QIcon& icon)
{
    m_pixmaps = notifierPixmaps(icon);
    Q_EMIT NewIcon();
}

void StatusNotifierItem::setToolTip(const QString& text)
{
    m_toolTip = notifierToolTip(text);
    Q_EMIT NewToolTip();
}

void StatusNotifierItem::click(const QPoint& place)
{
    if (onClick)
        onClick(place);
}

void StatusNotifierItem::Activate(int x, int y)
{
    click({x, y});
}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    click({x, y});
}

// Which lets the window that the click leads to have the focus; Qt takes it from there when it shows one.
void StatusNotifierItem::ProvideXdgActivationToken(const QString& token)
{
    if (const auto bytes = token.toUtf8(); bytes.size() <= longestToken)
        qputenv(activationToken, bytes);
}

void StatusNotifierItem::forgetActivationToken()
{
    qunsetenv(activationToken);
}

StatusNotifierItemWithMenu::StatusNotifierItemWithMenu(const QDBusConnection& bus, StatusMenu menu)
    : StatusNotifierItem(bus), m_menu(bus, menuPath, std::move(menu))
{
}

QDBusObjectPath StatusNotifierItemWithMenu::menu() const
{
    return QDBusObjectPath(menuPath);
}

} // namespace orrinvale
