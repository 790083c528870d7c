#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The file chooser of a desktop portal, with a user in it: file_chooser.py REPLY [SECONDS] [URI ...]

REPLY is "refuse" (an error reply), "silent" (no reply at all) or the number of the response, 0 being success, which
comes SECONDS after the request with the URIs; with "twice" 0 comes two times. Each request is a line on standard
output, after "started" and "ready": the method, the parent, the title, and the options by name without the token; its
end by the caller is a line "Close".
"""
import sys
from gi.repository import Gio, GLib

NAME, PATH = "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.FileChooser"
METHOD = """<method name="{}"><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="a{{sv}}" direction="in"/><arg type="o" direction="out"/></method>"""
XML = f'<node><interface name="{INTERFACE}">{METHOD.format("OpenFile")}{METHOD.format("SaveFile")}</interface></node>'
REQUEST = '<node><interface name="org.freedesktop.portal.Request"><method name="Close"/></interface></node>'
reply = sys.argv[1]
seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 0
uris = sys.argv[3:]


def shown(value):
    return bytes(value) if isinstance(value, list) and value and isinstance(value[0], int) else value


def respond(bus, sender, request):
    results = {"uris": GLib.Variant("as", uris)} if uris else {}
    for _ in range(2 if reply == "twice" else 1):
        bus.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                        GLib.Variant("(ua{sv})", (0 if reply == "twice" else int(reply), results)))


def called(bus, sender, _path, _interface, method, parameters, invocation):
    parent, title, options = parameters.unpack()
    token = options.pop("handle_token")
    print(method, repr(parent), repr(title), *(f"{key}={shown(options[key])!r}" for key in sorted(options)), flush=True)
    request = f"{PATH}/request/{sender[1:].replace('.', '_')}/{token}"
    if reply == "refuse":
        invocation.return_dbus_error("org.freedesktop.DBus.Error.UnknownMethod", "no such interface")
    elif reply != "silent":
        bus.register_object(request, Gio.DBusNodeInfo.new_for_xml(REQUEST).interfaces[0], closed, None, None)
        invocation.return_value(GLib.Variant("(o)", (request,)))
        GLib.timeout_add(int(seconds * 1000), respond, bus, sender, request)


def closed(_bus, _sender, _path, _interface, method, _parameters, invocation):
    print(method, flush=True)
    invocation.return_value(None)


def acquired(bus, _name):
    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0], called, None, None)
    print("started", flush=True)


Gio.bus_own_name(Gio.BusType.SESSION, NAME, Gio.BusNameOwnerFlags.NONE, acquired,
                 lambda *_: print("ready", flush=True), None)
GLib.MainLoop().run()
