#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The tray's newer protocol, with a tray that the test plays itself."""
import os
import time
import unittest

import gi

from desktop import DesktopTest, visible_windows

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

TRAY = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
SHELL = "org.gnome.Shell"
DESCRIPTION = f"""<node><interface name="{TRAY}">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<signal name="StatusNotifierHostRegistered"/></interface></node>"""


def session_bus():
    return Gio.DBusConnection.new_for_address_sync(
        os.environ["DBUS_SESSION_BUS_ADDRESS"], Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
        Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


def own_at_once(bus, name):
    bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName", GLib.Variant("(su)", (name, 0)),
                  None, 0, 5000, None)


class Tray:
    """What a panel is to its items: it writes down who registers, and what they signal."""

    def __init__(self):
        self.has_host = True
        self.items = []
        self.signals = []
        self.bus = session_bus()
        interface = Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0]
        self.bus.register_object("/StatusNotifierWatcher", interface, self.call,
                                 lambda *_: GLib.Variant("b", self.has_host))
        self.bus.signal_subscribe(None, ITEM, None, "/StatusNotifierItem", None, 0,
                                  lambda *arguments: self.signals.append(arguments[4]))

    def call(self, _connection, sender, _path, _interface, _method, _arguments, invocation):
        self.items.append(sender)
        invocation.return_value(None)

    def come(self):
        self.name = Gio.bus_own_name_on_connection(self.bus, TRAY, 0)

    def go(self):
        Gio.bus_unown_name(self.name)

    def be_gnome_shell(self):
        own_at_once(self.bus, SHELL)

    def show_items(self):
        self.has_host = True
        self.bus.emit_signal(None, "/StatusNotifierWatcher", TRAY, "StatusNotifierHostRegistered", None)

    def ask(self, interface, method, arguments, kind, path="/StatusNotifierItem"):
        return self.bus.call_sync(self.items[-1], path, interface, method, arguments,
                                  GLib.VariantType(kind) if kind else None, 0, 5000, None).unpack()

    def properties(self):
        return self.ask("org.freedesktop.DBus.Properties", "GetAll", GLib.Variant("(s)", (ITEM,)), "(a{sv})")[0]

    def click(self, method):
        self.ask(ITEM, method, GLib.Variant("(ii)", (5, 5)), None)

    def menu(self):
        """The ids of its entries by what they are called, as asked for by the name that the item gives."""
        path = self.properties()["Menu"]
        _, (root, properties, entries) = self.ask(MENU, "GetLayout", GLib.Variant("(iias)", (0, -1, [])),
                                                  "(u(ia{sv}av))", path)
        assert (root, properties) == (0, {"children-display": "submenu"}), (root, properties)
        return {properties["label"]: entry for entry, properties, _ in entries}

    def choose(self, title, event="clicked"):
        self.ask(MENU, "Event", GLib.Variant("(isvu)", (self.menu()[title], event, GLib.Variant("i", 0), 0)), None,
                 self.properties()["Menu"])

    def close(self):
        self.bus.close_sync()


class TrayTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False)
        self.tray = Tray()
        self.addCleanup(self.tray.close)

    def attend(self, seconds=0.0):
        """Lets the tray do its part."""
        end = time.monotonic() + seconds
        while GLib.MainContext.default().iteration(False) or time.monotonic() < end:
            pass

    def wait_for_item(self, count=1):
        def has_come():
            self.attend()
            return len(self.tray.items) >= count
        self.wait_for("item", has_come)

    def has_popover(self):
        self.attend()
        return bool(visible_windows("^orrinvale$"))

    def test_an_item_says_what_it_is_and_names_no_menu(self):
        self.tray.come()
        self.launch()
        self.wait_for_item()
        properties = self.tray.properties()
        pictures = properties.pop("IconPixmap")
        self.assertEqual(properties, {
            "Category": "ApplicationStatus", "Id": "orrinvale", "Title": "orrinvale", "Status": "Active", "WindowId": 0,
            "ItemIsMenu": False, "IconName": "", "OverlayIconName": "", "AttentionIconName": "",
            "ToolTip": ("", [], "Idle: System may sleep normally", "")})
        self.assertIn((22, 22, 22 * 22 * 4), [(width, height, len(pixels)) for width, height, pixels in pictures])

    def test_it_comes_once_something_shows_items_and_again_with_each_new_tray(self):
        self.tray.has_host = False
        self.tray.come()
        self.launch()
        self.attend(0.5)
        self.assertEqual(self.tray.items, [])
        self.tray.show_items()
        self.wait_for_item()
        self.tray.go()
        self.attend(0.1)
        self.tray.come()
        self.wait_for_item(len(self.tray.items) + 1)

    def test_it_comes_to_a_tray_that_is_later_than_the_older_protocols_turn(self):
        self.launch()
        self.stays_up(1.5)
        self.tray.come()
        self.wait_for_item()
        self.assertEqual(self.tray.properties()["Status"], "Active")

    def test_both_clicks_open_and_close_the_popover(self):
        self.tray.come()
        self.launch()
        self.wait_for_item()
        for method in ["Activate", "ContextMenu"]:
            self.tray.click(method)
            self.wait_for("popover", self.has_popover, 3)
            self.tray.click(method)
            self.wait_for("end of the popover", lambda: not self.has_popover(), 3)

    def test_the_tray_of_gnome_shell_is_given_a_menu(self):
        self.tray.be_gnome_shell()
        self.tray.come()
        self.launch()
        self.wait_for_item()
        self.assertEqual(list(self.tray.menu()), ["Open orrinvale", "Activity Log", "Settings", "Quit"])
        self.tray.choose("Open orrinvale", "hovered")
        self.attend(0.3)
        self.assertFalse(self.has_popover())
        self.tray.choose("Open orrinvale")
        self.wait_for("popover", self.has_popover, 3)
        self.tray.choose("Settings")
        self.wait_for("settings", lambda: visible_windows("^orrinvale Settings$"), 3)
        self.tray.click("Activate")  # a double click
        self.wait_for("popover", self.has_popover, 3)
        self.tray.choose("Quit")
        self.assertEqual(self.program.wait(5), 0)

    def test_a_tray_beside_gnome_shell_is_given_none(self):
        self.tray.come()
        beside = session_bus()
        self.addCleanup(beside.close_sync)
        own_at_once(beside, SHELL)
        self.launch()
        self.wait_for_item()
        self.assertNotIn("Menu", self.tray.properties())

    def test_an_item_gets_its_menu_when_gnome_shell_takes_the_tray_over(self):
        self.tray.come()
        self.launch()
        self.wait_for_item()
        self.tray.go()
        self.attend(0.1)
        self.tray.be_gnome_shell()
        self.tray.come()
        self.wait_for_item(2)
        self.assertIn("Open orrinvale", self.tray.menu())

    def test_a_countdown_sends_texts_and_no_pictures(self):
        self.tray.come()
        path = self.download()
        self.launch()
        self.wait_for_item()
        self.wait_for("download", lambda: "Awake" in self.tray.properties()["ToolTip"][2])
        os.unlink(path)
        self.wait_for("cooldown", lambda: "Cooling Down" in self.tray.properties()["ToolTip"][2])
        self.attend(0.5)
        self.tray.signals.clear()
        self.attend(2.5)
        self.assertIn(self.tray.signals, [["NewToolTip"] * 2, ["NewToolTip"] * 3])


if __name__ == "__main__":
    unittest.main()
