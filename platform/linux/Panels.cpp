// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/Panels.h"

#include "platform/linux/DBus.h"
#include "platform/linux/XConnection.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <vector>

namespace orrinvale
{

namespace
{

constexpr std::chrono::milliseconds plasmasPatience(200);
constexpr std::uint32_t mostWindows = 4096;
constexpr auto anyType = XCB_GET_PROPERTY_TYPE_ANY;

// Of a property of 32-bit values; empty where it is missing or something else.
std::vector<std::uint32_t> valuesOf(xcb_connection_t* connection, xcb_get_property_cookie_t asked)
{
    const XReply<xcb_get_property_reply_t> property(xcb_get_property_reply(connection, asked, nullptr), &std::free);
    if (!property || property->format != 32)
        return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
    return {first, first + property->value_len};
}

std::vector<PanelStrut> strutsOf(xcb_connection_t* connection, xcb_window_t root)
{
    const auto clientList = xAtom(connection, "_NET_CLIENT_LIST");
    const auto strutPartial = xAtom(connection, "_NET_WM_STRUT_PARTIAL");
    const auto windows =
        valuesOf(connection, xcb_get_property(connection, 0, root, clientList, anyType, 0, mostWindows));
    std::vector<xcb_get_property_cookie_t> asked;
    for (const auto window : windows)
        asked.push_back(xcb_get_property(connection, 0, window, strutPartial, anyType, 0, PanelStrut().size()));
    std::vector<PanelStrut> struts;
    for (const auto& question : asked) {
        const auto values = valuesOf(connection, question);
        if (PanelStrut strut; values.size() == strut.size()) {
            std::copy(values.begin(), values.end(), strut.begin());
            struts.push_back(strut);
        }
    }
    return struts;
}

bool overlap(std::uint32_t from, std::uint32_t to, int first, int last)
{
    return from <= to && static_cast<std::int64_t>(from) <= last && static_cast<std::int64_t>(to) >= first;
}

} // namespace

QRect partWithoutStruts(const QRect& screen, const QSize& desktop, std::span<const PanelStrut> struts)
{
    auto part = screen;
    const auto take = [&](const QRect& rest) {
        if (rest.width() * 2 > screen.width() && rest.height() * 2 > screen.height())
            part = rest;
    };
    static constexpr std::uint32_t most = 1U << 20; // no desktop is larger
    for (const auto& strut : struts) {
        std::array<int, 4> reserved;
        std::transform(strut.begin(), strut.begin() + 4, reserved.begin(),
                       [](std::uint32_t pixels) { return static_cast<int>(std::min(pixels, most)); });
        const auto [left, right, top, bottom] = reserved;
        if (left && overlap(strut[4], strut[5], screen.top(), screen.bottom()))
            take(QRect(QPoint(std::max(part.left(), left), part.top()), part.bottomRight()));
        if (right && overlap(strut[6], strut[7], screen.top(), screen.bottom()))
            take(QRect(part.topLeft(), QPoint(std::min(part.right(), desktop.width() - right - 1), part.bottom())));
        if (top && overlap(strut[8], strut[9], screen.left(), screen.right()))
            take(QRect(QPoint(part.left(), std::max(part.top(), top)), part.bottomRight()));
        if (bottom && overlap(strut[10], strut[11], screen.left(), screen.right()))
            take(QRect(part.topLeft(), QPoint(part.right(), std::min(part.bottom(), desktop.height() - bottom - 1))));
    }
    return part;
}

QRect partWithoutPlasmaPanels(const QDBusConnection& bus, const QString& name, const QRect& screen)
{
    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.plasmashell"), QStringLiteral("/StrutManager"),
        QStringLiteral("org.kde.PlasmaShell.StrutManager"), QStringLiteral("availableScreenRect"));
    question << name;
    question.setAutoStartService(false);
    const auto answer = bus.call(question, QDBus::Block, static_cast<int>(plasmasPatience.count()));
    const auto told = unreadOf(answer.arguments().value(0), "(iiii)");
    if (!told)
        return screen;
    QRect part;
    *told >> part;
    const auto isPlausible =
        screen.contains(part) && part.width() >= screen.width() / 2 && part.height() >= screen.height() / 2;
    return isPlausible ? part : screen;
}

QRect partWithoutPanels(const QScreen& screen)
{
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        return partWithoutPlasmaPanels(QDBusConnection::sessionBus(), screen.name(), screen.geometry());
    auto* connection = xConnection();
    if (!connection || QGuiApplication::screens().size() < 2)
        return screen.availableGeometry();
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto size = xcb_get_geometry(connection, root);
    const auto struts = strutsOf(connection, root);
    const XReply<xcb_get_geometry_reply_t> desktop(xcb_get_geometry_reply(connection, size, nullptr), &std::free);
    if (!desktop)
        return screen.availableGeometry();
    // Qt scales each screen from its upper left corner, which stays.
    const auto scale = screen.devicePixelRatio();
    const auto logical = screen.geometry();
    const QRect native(logical.topLeft(), (QSizeF(logical.size()) * scale).toSize());
    const auto part = partWithoutStruts(native, {desktop->width, desktop->height}, struts);
    const auto scaled = [&](int pixels) { return qRound(pixels / scale); };
    return logical.adjusted(scaled(part.left() - native.left()), scaled(part.top() - native.top()),
                            -scaled(native.right() - part.right()), -scaled(native.bottom() - part.bottom()));
}

} // namespace orrinvale
