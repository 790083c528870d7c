#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""A session manager, a compositor's idle monitor and a login manager that play together: gnome_desktop.py [OPTION ...]

The session manager hands the flag for suspending on to the login manager, which then refuses to suspend whoever asks,
as systemd does since 257. Options: "old" (the login manager is an earlier one and binds nobody), "keeps" (the session
manager hands nothing on, as MATE's), "unmonitored" (no idle monitor), "cinnamon" (its monitor and its three things),
"idle" (nobody is there at the beginning), "uncounted" (the session manager grants locks that do not count).

Lines "idle", "active", "restart-monitor" and "end-monitor" on standard input; what happens is a line on standard output.
"""
import os
import sys
from gi.repository import Gio, GLib

options = sys.argv[1:]
LOGIN = ("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")
SESSION = ("org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager")
SHELL = ("org.cinnamon.Muffin" if "cinnamon" in options else "org.gnome.Mutter") + ".IdleMonitor"
MONITOR = (SHELL, "/" + SHELL.replace(".", "/") + "/Core", SHELL)
THINGS = "shutdown:sleep:handle-lid-switch" if "cinnamon" in options else "sleep"
WEAK = "" if "old" in options else '<property name="BlockWeakInhibited" type="s" access="read"/>'
LOGIN_XML = f"""<node><interface name="{LOGIN[2]}">
<method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="h" direction="out"/></method>
<method name="ListInhibitors"><arg type="a(ssssuu)" direction="out"/></method>
<method name="Suspend"><arg type="b" direction="in"/></method>{WEAK}</interface></node>"""
SESSION_XML = f"""<node><interface name="{SESSION[2]}">
<method name="Inhibit"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="u" direction="in"/><arg type="u" direction="out"/></method>
<method name="Uninhibit"><arg type="u" direction="in"/></method>
<method name="IsInhibited"><arg type="u" direction="in"/><arg type="b" direction="out"/></method></interface></node>"""
MONITOR_XML = f"""<node><interface name="{MONITOR[2]}">
<method name="AddIdleWatch"><arg type="t" direction="in"/><arg type="u" direction="out"/></method>
<method name="AddUserActiveWatch"><arg type="u" direction="out"/></method>
<method name="RemoveWatch"><arg type="u" direction="in"/></method>
<signal name="WatchFired"><arg type="u"/></signal></interface></node>"""
cookies = set()
ours = None  # the write end of the lock of our test's own, while it has one
is_idle = "idle" in options
watches = {}
numbers = iter(range(1, 10000))
name_of_monitor = 0


def say(*words):
    print(*words, flush=True)


def locks():
    rows = [("idle", "orrinvale", "x", "block", 0, 1)] if ours else []
    if cookies and "keeps" not in options:
        rows.append((THINGS, "user", "user session inhibited", "block", 0, os.getpid()))
    return rows


def login(_connection, _sender, _path, _interface, method, parameters, invocation):
    global ours
    if method == "Inhibit":
        ours, given = os.pipe()
        handles = Gio.UnixFDList.new_from_array([given])
        invocation.return_value_with_unix_fd_list(GLib.Variant("(h)", (0,)), handles)
    elif method == "ListInhibitors":
        invocation.return_value(GLib.Variant("(a(ssssuu))", (locks(),)))
    elif "old" not in options and any("sleep" in row[0] for row in locks()):
        invocation.return_dbus_error("org.freedesktop.DBus.Error.AccessDenied", "held by an inhibitor")
    else:
        say("suspended")
        invocation.return_value(None)


def session(_connection, _sender, _path, _interface, method, parameters, invocation):
    if method == "Inhibit":
        cookie = next(numbers)
        if "uncounted" not in options:
            cookies.add(cookie)
        say("held")
        invocation.return_value(GLib.Variant("(u)", (cookie,)))
    elif method == "Uninhibit":
        cookies.discard(parameters[0])
        say("freed")
        invocation.return_value(None)
    else:
        invocation.return_value(GLib.Variant("(b)", (bool(cookies),)))


def fire(kind):
    for number in [number for number, watch in watches.items() if watch == kind]:
        if kind == "active":
            del watches[number]
        session_bus.emit_signal(None, MONITOR[1], MONITOR[2], "WatchFired", GLib.Variant("(u)", (number,)))
    return False


def monitor(_connection, _sender, _path, _interface, method, parameters, invocation):
    if method == "RemoveWatch":
        watches.pop(parameters[0], None)
        invocation.return_value(None)
        return
    number = next(numbers)
    watches[number] = "idle" if method == "AddIdleWatch" else "active"
    say("watch", watches[number], *parameters.unpack())
    invocation.return_value(GLib.Variant("(u)", (number,)))
    if method == "AddIdleWatch" and is_idle:
        GLib.idle_add(fire, "idle")


def own_monitor():
    global name_of_monitor
    name_of_monitor = Gio.bus_own_name_on_connection(session_bus, MONITOR[0], Gio.BusNameOwnerFlags.NONE, None, None)


def leave_monitor():
    global name_of_monitor
    watches.clear()
    if name_of_monitor:
        Gio.bus_unown_name(name_of_monitor)
    name_of_monitor = 0


def told(line):
    global is_idle
    if line in ["idle", "active"]:
        is_idle = line == "idle"
        fire(line)
    elif line.endswith("monitor"):
        leave_monitor()
        if line == "restart-monitor":
            GLib.timeout_add(100, own_monitor)
    say("did", line)


def read(_channel, _condition):
    for line in os.read(0, 4096).decode().split():
        told(line)
    return True


def register(bus, place, xml, called, get=None):
    bus.register_object(place[1], Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0], called, get, None)


session_bus = Gio.bus_get_sync(Gio.BusType.SESSION)
system_bus = Gio.bus_get_sync(Gio.BusType.SYSTEM)
register(system_bus, LOGIN, LOGIN_XML, login, lambda *_: GLib.Variant("s", ""))
register(session_bus, SESSION, SESSION_XML, session)
register(session_bus, MONITOR, MONITOR_XML, monitor)
say("started")
if "unmonitored" not in options:
    own_monitor()
Gio.bus_own_name_on_connection(system_bus, LOGIN[0], Gio.BusNameOwnerFlags.NONE, None, None)
Gio.bus_own_name_on_connection(session_bus, SESSION[0], Gio.BusNameOwnerFlags.NONE, lambda *_: say("ready"), None)
GLib.io_add_watch(0, GLib.IO_IN, read)
GLib.MainLoop().run()
