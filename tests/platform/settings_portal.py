#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The settings portal on the session bus: settings_portal.py [SECONDS] answers that late.

Lines "NAMESPACE KEY VALUE" on standard input change a setting and announce it; the value is a GVariant text. Each
answer is a line on standard output, after "ready" once it owns its name.
"""
import sys
import threading
from gi.repository import Gio, GLib

INTERFACE = "org.freedesktop.portal.Settings"
XML = f"""<node><interface name="{INTERFACE}">
<method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal></interface></node>"""
delay = float(sys.argv[1]) if len(sys.argv) > 1 else 0
settings = {}
connection = None


def answer(parameters, invocation):
    value = settings.get(parameters.unpack())
    if value is None:
        invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "Requested setting not found")
    else:  # the first version of the portal wraps the value twice
        invocation.return_value(GLib.Variant("(v)", (GLib.Variant("v", value),)))
    print("answered", *parameters.unpack(), flush=True)


def called(_connection, _sender, _path, _interface, _method, parameters, invocation):
    GLib.timeout_add(int(delay * 1000), answer, parameters, invocation)


def change(line):
    namespace, key, text = line.split(" ", 2)
    settings[namespace, key] = GLib.Variant.parse(None, text, None, None)
    if connection:
        connection.emit_signal(None, "/org/freedesktop/portal/desktop", INTERFACE, "SettingChanged",
                               GLib.Variant("(ssv)", (namespace, key, settings[namespace, key])))
    print("changed", namespace, key, flush=True)


def acquired(bus, _name):
    global connection
    connection = bus
    bus.register_object("/org/freedesktop/portal/desktop", Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0], called,
                        None, None)


def read_lines():
    for line in sys.stdin:
        GLib.idle_add(change, line.strip())


threading.Thread(target=read_lines, daemon=True).start()
Gio.bus_own_name(Gio.BusType.SESSION, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE, acquired,
                 lambda *_: print("ready", flush=True), None)
GLib.MainLoop().run()
