#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Stands in for systemd's manager on the bed's system bus: writes down each unit that logind would have started,
suspend.target among them, and reports the job as done a second later."""
from gi.repository import Gio, GLib

MANAGER = """<node><interface name="org.freedesktop.systemd1.Manager">
<method name="Subscribe"/><method name="Unsubscribe"/>
<method name="StartUnit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="o" direction="out"/>
</method>
<method name="StartTransientUnit"><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="a(sv)" direction="in"/><arg type="a(sa(sv))" direction="in"/><arg type="o" direction="out"/></method>
<signal name="JobRemoved"><arg type="u"/><arg type="o"/><arg type="s"/><arg type="s"/></signal>
</interface></node>"""
UNIT = """<node><interface name="org.freedesktop.systemd1.Unit"><property name="LoadState" type="s" access="read"/>
<property name="ActiveState" type="s" access="read"/></interface></node>"""
PATH = "/org/freedesktop/systemd1"
jobs = 0


def call(connection, _sender, _path, _interface, method, parameters, invocation):
    global jobs
    print(f"{method}{parameters.unpack()}", flush=True)
    if not method.startswith("Start"):
        invocation.return_value(None)
        return
    jobs += 1
    number, unit, job = jobs, parameters.unpack()[0], f"{PATH}/job/{jobs}"
    invocation.return_value(GLib.Variant("(o)", (job,)))

    def finish():
        connection.emit_signal(None, PATH, "org.freedesktop.systemd1.Manager", "JobRemoved",
                               GLib.Variant("(uoss)", (number, job, unit, "done")))
        return False

    GLib.timeout_add(1000, finish)


def state(_connection, _sender, _path, _interface, name):
    return GLib.Variant("s", "loaded" if name == "LoadState" else "inactive")


def export(connection, _name):
    connection.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(MANAGER).interfaces[0], call, None, None)
    for unit in ["suspend_2etarget", "hibernate_2etarget", "sleep_2etarget"]:
        connection.register_object(f"{PATH}/unit/{unit}", Gio.DBusNodeInfo.new_for_xml(UNIT).interfaces[0], None, state,
                                   None)


Gio.bus_own_name(Gio.BusType.SYSTEM, "org.freedesktop.systemd1", Gio.BusNameOwnerFlags.NONE, export, None, None)
GLib.MainLoop().run()
