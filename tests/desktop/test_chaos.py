#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Buses and services that hang, go and come back, while a download is to be noticed and a signal to be answered."""
import os
import signal
import subprocess
import time
import unittest
from contextlib import contextmanager
from pathlib import Path

from desktop import PROGRAM, DesktopTest, bed, inhibitors

# Seconds for what must not wait for anybody. The bound is one; the rest is for a machine that is busy, and far from the
# 25 that a question of D-Bus lasts.
PATIENCE = 8


TRAY = """
from gi.repository import Gio, GLib
XML = '''<node><interface name="org.kde.StatusNotifierWatcher"><method name="RegisterStatusNotifierItem">
<arg type="s" direction="in"/></method><property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
</interface></node>'''
def called(_connection, sender, _path, _interface, _method, _parameters, invocation):
    print("item of", sender, flush=True)
    invocation.return_value(None)
def acquired(bus, _name):
    bus.register_object("/StatusNotifierWatcher", Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0], called,
                        lambda *_: GLib.Variant("b", True), None)
Gio.bus_own_name(Gio.BusType.SESSION, "org.kde.StatusNotifierWatcher", 0, acquired,
                 lambda *_: print("ready", flush=True), None)
GLib.MainLoop().run()
"""


def process_of(service):
    return int(Path(os.environ["BED"], "pids", service).read_text().split()[0])


@contextmanager
def hanging(service):
    os.kill(process_of(service), signal.SIGSTOP)
    try:
        yield
    finally:
        os.kill(process_of(service), signal.SIGCONT)


def displayed():
    return subprocess.run(["dunstctl", "count", "displayed"], capture_output=True, text=True, timeout=20).stdout.strip()


def on_session_bus(pid):
    names = subprocess.run(["busctl", "--user", "--no-pager", "--no-legend", "list"], capture_output=True, text=True,
                           env={**os.environ, "DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"]})
    return any(line.split()[1] == str(pid) for line in names.stdout.splitlines())


class ChaosTest(DesktopTest):
    def tearDown(self):
        os.environ.pop("XDG_CURRENT_DESKTOP", None)
        super().tearDown()

    def is_answered(self):
        """The main thread takes a second start's call and a signal in time."""
        self.assertEqual(subprocess.run([PROGRAM], timeout=10).returncode, 0)
        self.program.send_signal(signal.SIGTERM)
        self.assertEqual(self.program.wait(PATIENCE), 0)

    def test_a_session_bus_that_hangs_at_the_start_is_done_without(self):
        with hanging("session-bus"):
            self.launch()
            self.download()
            self.wait_for("inhibitor", inhibitors, PATIENCE)
            self.program.send_signal(signal.SIGTERM)
            self.assertEqual(self.program.wait(PATIENCE), 0)

    def test_a_session_bus_that_answers_later_is_taken_up(self):
        self.choose(wakeMode="Always Awake")
        with hanging("session-bus"):
            self.launch()
            self.wait_for("inhibitor", inhibitors, PATIENCE)
        self.wait_for("connection", lambda: on_session_bus(self.program.pid))
        self.wait_for("inhibitor", inhibitors)
        self.is_answered()

    def test_a_session_bus_that_hangs_later_holds_up_nothing(self):
        self.launch()
        self.wait_for("connection", lambda: on_session_bus(self.program.pid))
        self.stays_up(1)
        with hanging("session-bus"):
            self.download()
            self.wait_for("inhibitor", inhibitors, PATIENCE)
            self.program.send_signal(signal.SIGTERM)
            self.assertEqual(self.program.wait(PATIENCE), 0)

    def test_a_system_bus_that_hangs_at_the_start_is_found_later(self):
        with hanging("system-bus"):
            self.launch()
            self.stays_up(1)
        self.stays_up(5)
        self.download()
        self.wait_for("inhibitor", inhibitors, PATIENCE)
        self.is_answered()

    def test_a_system_bus_that_was_stopped_and_started_again_carries_the_next_download(self):
        self.launch()
        for action, service in [("stop", "logind"), ("stop", "system-bus"), ("start", "system-bus"), ("start", "logind")]:
            bed(action, service)
        time.sleep(2)
        self.download()
        self.wait_for("inhibitor", inhibitors, 5)
        self.is_answered()

    def test_a_logind_that_is_stopped_for_a_moment_holds_when_it_goes_on(self):
        self.launch()
        with hanging("logind"):
            self.download()
            self.wait_for("the decision", lambda: self.messages() == ["Downloading film.mkv.part"], PATIENCE)
        self.wait_for("inhibitor", lambda: self.download() and inhibitors(), 5)

    def test_a_notification_daemon_that_hangs_holds_up_nothing(self):
        with hanging("dunst"):
            self.launch()
            self.download()
            self.wait_for("inhibitor", inhibitors, PATIENCE)
            self.is_answered()

    def test_a_tray_that_hangs_at_the_start_holds_up_nothing_and_gets_the_item_when_it_goes_on(self):
        tray = subprocess.Popen(["/usr/bin/python3", "-c", TRAY], stdout=subprocess.PIPE, text=True)
        self.addCleanup(tray.stdout.close)
        self.addCleanup(tray.kill)
        self.assertEqual(tray.stdout.readline(), "ready\n")
        tray.send_signal(signal.SIGSTOP)
        self.launch()
        self.stays_up(2)
        self.download()
        self.wait_for("inhibitor", inhibitors, PATIENCE)
        tray.send_signal(signal.SIGCONT)
        self.assertIn("item", tray.stdout.readline())
        self.is_answered()

    def test_nothing_of_ours_stands_after_the_end(self):
        before = displayed()
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("notification", lambda: displayed() != before)
        self.program.terminate()
        self.program.wait(5)
        self.wait_gone(before)

    def test_what_a_killed_one_left_is_withdrawn_at_the_next_start(self):
        before = displayed()
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("record", (Path(os.environ["XDG_RUNTIME_DIR"]) / "orrinvale.notifications").exists)
        self.assertNotEqual(displayed(), before)
        self.program.kill()
        self.program.wait()
        self.choose(wakeMode="Off")
        self.launch()
        self.wait_gone(before)

    def wait_gone(self, before):
        self.program = None
        self.wait_for("withdrawal", lambda: displayed() == before)

    def test_a_desktop_that_can_hold_nothing_is_told_of_once(self):
        os.environ["XDG_CURRENT_DESKTOP"] = "LXQt"
        before = int(displayed())
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("two notifications", lambda: int(displayed()) == before + 2)
        self.assertEqual(inhibitors(), [])
        self.assertIn("failed to acquire assertion (error -95)", self.output())
        self.is_answered()


if __name__ == "__main__":
    unittest.main()
