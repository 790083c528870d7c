#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The bed itself: its services are real, and it leaves nothing behind."""
import os
import signal
import subprocess
import time
import unittest
from pathlib import Path

BED = Path(__file__).resolve().parent / "bed"


def run(services, script):
    return subprocess.run([BED, "run", *services, "--", "sh", "-c", script], capture_output=True, text=True, timeout=90)


class BedTest(unittest.TestCase):
    def test_logind_suspends_an_idle_machine_and_not_an_inhibited_one(self):
        # Each question wakes logind, which then looks at its own timer: left alone it rounds it up to half a minute.
        poke = "for i in 1 2 3 4 5 6 7 8; do sleep 1; systemd-inhibit --list >/dev/null; done; $BED_TOOL suspends"
        idle = run(["logind:idle=3s"], poke)
        self.assertGreater(int(idle.stdout), 0, idle)
        held = run(["logind:idle=3s"], f"systemd-inhibit --what=idle --who=test sh -c '{poke}'")
        self.assertEqual(held.stdout, "0\n", held)

    def test_a_drained_battery_reaches_upower(self):
        result = run(["upower"], "$BED_TOOL battery 'bat 19 Discharging'; for i in $(seq 30); do sleep 0.1; upower -d "
                                 "| grep -q 'percentage:.*19%' && echo drained && exit; done")
        self.assertEqual(result.stdout, "drained\n", result)

    def test_every_service_comes_up(self):
        for service in ["dunst", "xfce-panel", "compositor", "screens", "pulseaudio", "pipewire", "gnome-session", "powerdevil"]:
            with self.subTest(service):
                self.assertEqual(run([service], "echo up").stdout, "up\n")

    def test_nothing_is_left_and_nothing_of_the_user_is_seen(self):
        result = run(["logind", "dunst"], "setsid sleep 1000 & echo $BED $HOME $XDG_CONFIG_HOME $XDG_RUNTIME_DIR "
                                          "$DBUS_SYSTEM_BUS_ADDRESS $DBUS_SESSION_BUS_ADDRESS $PULSE_SERVER")
        bed, *private = result.stdout.split()
        for place in private:
            self.assertIn(bed, place)
        self.assertFalse(Path(bed).exists())
        self.assertEqual([], self.processes_of(bed))

    def processes_of(self, bed):
        found = []
        for process in Path("/proc").glob("[0-9]*"):
            try:
                if bed.encode() in (process / "environ").read_bytes():
                    found.append((process / "comm").read_text())
            except OSError:
                pass  # it has ended
        return found

    def test_other_people_s_processes_are_not_seen(self):
        outside = subprocess.Popen(["sleep", "1000"])
        self.addCleanup(outside.wait)
        self.addCleanup(outside.kill)
        seen = run(["session-bus"], "sleep 1001 & cat /proc/[0-9]*/cmdline | tr '\\0' ' '").stdout
        self.assertIn("sleep 1001", seen)
        self.assertNotIn("sleep 1000", seen)

    def test_it_ends_with_whoever_started_it_and_when_told_to(self):
        for number in [signal.SIGTERM, signal.SIGKILL]:
            with self.subTest(number):
                bed = subprocess.Popen([BED, "run", "session-bus", "--", "sh", "-c", "echo $BED; sleep 1000"],
                                       stdout=subprocess.PIPE, text=True)
                folder = bed.stdout.readline().strip()
                self.assertTrue(self.processes_of(folder))
                bed.send_signal(number)
                bed.stdout.close()
                self.assertIn(bed.wait(), [143, -signal.SIGKILL])
                until = time.monotonic() + 5
                while self.processes_of(folder) and time.monotonic() < until:
                    time.sleep(0.05)
                self.assertEqual([], self.processes_of(folder))

    def test_the_command_s_status_is_handed_on(self):
        self.assertEqual(run(["session-bus"], "exit 7").returncode, 7)

    @unittest.skipIf(os.getuid() != 0, "the other tests already run as an ordinary user")
    def test_an_ordinary_user_has_a_bed_too(self):
        result = subprocess.run(["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", BED, "run", "logind",
                                 "upower", "dunst", "--", "systemd-inhibit", "--list"], capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stdout), (0, "No inhibitors.\n"), result)

    @unittest.skipIf(os.getuid() != 0, "the other tests already run as an ordinary user")
    def test_an_ordinary_user_sees_the_bed_s_processes_alone(self):
        outside = subprocess.Popen(["setpriv", "--reuid=65534", "--clear-groups", "sleep", "1000"])
        self.addCleanup(outside.wait)
        self.addCleanup(outside.kill)
        seen = subprocess.run(["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", BED, "run", "session-bus",
                               "--", "sh", "-c", "sleep 1001 & cat /proc/[0-9]*/cmdline | tr '\\0' ' '"],
                              capture_output=True, text=True).stdout
        self.assertIn("sleep 1001", seen)
        self.assertNotIn("sleep 1000", seen)


if __name__ == "__main__":
    unittest.main()
