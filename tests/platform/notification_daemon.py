#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""A notification daemon on the session bus that writes down what it is asked: notification_daemon.py [OPTION ...]

Options: "markup" (it shows body-markup), "silent" (it answers nothing). Its ids begin with 7. Each request is a line
on standard output, after "started" and, once it owns its name, "ready".
"""
import sys
from gi.repository import Gio, GLib

SERVICE = "org.freedesktop.Notifications"
XML = """<node><interface name="org.freedesktop.Notifications">
<method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
<arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/></method>
<method name="CloseNotification"><arg type="u" direction="in"/></method>
<method name="GetCapabilities"><arg type="as" direction="out"/></method></interface></node>"""
ids = iter(range(7, 1000))
options = sys.argv[1:]


def say(*words):
    print(*words, flush=True)


def called(_connection, _sender, _path, _interface, method, parameters, invocation):
    if method == "GetCapabilities":
        say("capabilities")
        if "silent" in options:
            return
        invocation.return_value(GLib.Variant("(as)", (["body"] + ["body-markup"] * ("markup" in options),)))
    elif method == "CloseNotification":
        say("close", *parameters.unpack())
        invocation.return_value(None)
    else:
        _, replaced, _, title, body, *_ = parameters.unpack()
        say("show", replaced, title, body)
        if "silent" not in options:
            invocation.return_value(GLib.Variant("(u)", (replaced or next(ids),)))


def acquired(bus, _name):
    interface = Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0]
    bus.register_object("/org/freedesktop/Notifications", interface, called, None, None)
    say("started")


Gio.bus_own_name(Gio.BusType.SESSION, SERVICE, Gio.BusNameOwnerFlags.NONE, acquired, lambda *_: say("ready"), None)
GLib.MainLoop().run()
