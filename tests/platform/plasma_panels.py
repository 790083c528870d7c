#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Plays Plasma's word on where its panels are, by the screen's name."""
import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.kde.plasmashell"
TOLD = {"below": (0, 0, 1280, 756), "left": (48, 0, 1232, 800), "tiny": (0, 0, 1280, 20), "elsewhere": (5000, 0, 1280, 756)}


class StrutManager(dbus.service.Object):
    @dbus.service.method("org.kde.PlasmaShell.StrutManager", "s", "(iiii)")
    def availableScreenRect(self, name):
        return TOLD[name]


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
print("started", flush=True)
name = dbus.service.BusName(NAME, dbus.SessionBus())
manager = StrutManager(name, "/StrutManager")
print("ready", flush=True)
GLib.MainLoop().run()
