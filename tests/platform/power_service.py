#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""One power service on the session bus that writes down what it is asked: power_service.py KIND [SECONDS]

It answers a request SECONDS late, or refuses it when SECONDS is "refuse", or late when it is "refuse-1.5". Each request and release is a line on
standard output, after "started" and, once it owns its name, "ready".
"""
import sys
from gi.repository import Gio, GLib

KINDS = {  # name, path, interface, request, its arguments, release
    "policy-agent": ("org.kde.Solid.PowerManagement.PolicyAgent", "/org/kde/Solid/PowerManagement/PolicyAgent",
                     "org.kde.Solid.PowerManagement.PolicyAgent", "AddInhibition", "uss", "ReleaseInhibition"),
    "session-manager": ("org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager",
                        "Inhibit", "susu", "Uninhibit"),
    "power-management": ("org.freedesktop.PowerManagement", "/org/freedesktop/PowerManagement/Inhibit",
                         "org.freedesktop.PowerManagement.Inhibit", "Inhibit", "ss", "UnInhibit"),
    "screen-saver": ("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver",
                     "Inhibit", "ss", "UnInhibit"),
    "portal": ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Inhibit",
               "Inhibit", ["s", "u", "a{sv}"], None),
}
REQUEST = "/org/freedesktop/portal/desktop/request/1"
name, path, interface, take, signature, give = KINDS[sys.argv[1]]
delay = sys.argv[2] if len(sys.argv) > 2 else "0"
cookies = iter(range(41, 1000))


def say(*words):
    print(*words, flush=True)


def description():
    arguments = "".join(f'<arg type="{kind}" direction="in"/>' for kind in signature)
    result = "u" if give else "o"
    methods = f'<method name="{take}">{arguments}<arg type="{result}" direction="out"/></method>'
    if give:
        methods += f'<method name="{give}"><arg type="u" direction="in"/></method>'
    return f'<node><interface name="{interface}">{methods}</interface></node>'


def grant(invocation):
    cookie = GLib.Variant("(u)", (next(cookies),)) if give else GLib.Variant("(o)", (REQUEST,))
    say("granted", cookie[0])
    invocation.return_value(cookie)


def refuse(invocation):
    invocation.return_dbus_error("org.freedesktop.DBus.Error.AccessDenied", "blocked by the user")


def called(_connection, _sender, _path, _interface, method, parameters, invocation):
    say(method, *parameters.unpack())
    if method != take:
        invocation.return_value(None)
    elif delay.startswith("refuse"):
        GLib.timeout_add(int(float(delay.partition("-")[2] or 0) * 1000), refuse, invocation)
    else:
        GLib.timeout_add(int(float(delay) * 1000), grant, invocation)


def register(bus, object_path, xml):
    bus.register_object(object_path, Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0], called, None, None)


def acquired(bus, _name):
    register(bus, path, description())
    if not give:
        register(bus, REQUEST, '<node><interface name="org.freedesktop.portal.Request"><method name="Close"/>'
                               "</interface></node>")
    say("started")


Gio.bus_own_name(Gio.BusType.SESSION, name, Gio.BusNameOwnerFlags.NONE, acquired, lambda *_: say("ready"), None)
GLib.MainLoop().run()
