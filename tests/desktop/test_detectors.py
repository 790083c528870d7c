#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Real load, real notifications."""
import os
import re
import shutil
import subprocess
import sys
import unittest

from desktop import DesktopTest, bed, inhibitors


class DetectorsTest(DesktopTest):
    def test_a_spinning_process_is_named(self):
        spinner = shutil.copy(shutil.which("bash"), self.downloads.parent / "our-spinner")
        self.launch()
        load = subprocess.Popen([spinner, "-c", "while :; do :; done"])
        try:
            self.wait_for("load in the log", lambda: any(
                re.fullmatch(r"High CPU load at \d+ % \(our-spinner\)", text) for text in self.messages()), 40)
        finally:
            load.kill()
            load.wait()

    def test_traffic_over_a_link_is_noticed(self):
        traffic = "import socket, time\n" \
                  "out = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)\n" \
                  "into = socket.socket(socket.AF_INET, socket.SOCK_DGRAM); into.bind(('127.0.0.1', 0))\n" \
                  "end = time.monotonic() + 12\n" \
                  "while time.monotonic() < end:\n" \
                  "    [out.sendto(b'x' * 10000, into.getsockname()) for _ in range(30)]; time.sleep(0.1)\n"
        self.launch()
        load = subprocess.Popen([sys.executable, "-c", traffic])
        try:
            self.wait_for("traffic in the log", lambda: any(
                re.fullmatch(r"Receiving data at \d+\.\d MB/s", text) for text in self.messages()), 15)
        finally:
            load.kill()
            load.wait()

    def test_a_call_keeps_the_machine_awake_while_it_is_heard(self):
        home = self.downloads.parent
        entries = home / "data/applications"
        entries.mkdir()
        program = shutil.copy(shutil.which("sleep"), home / "zoom")
        (entries / "Zoom.desktop").write_text(f"[Desktop Entry]\nType=Application\nName=Zoom\nExec={program} %U\n")
        self.choose()
        call = subprocess.Popen([program, "60"])
        recording = subprocess.Popen(["parecord", "-d", "mic", "--raw", "/dev/null"])
        try:
            self.launch()
            self.wait_for("call", lambda: inhibitors() == [("idle", "Zoom call in progress")], 20)
            self.wait_for("log", lambda: self.messages() == ["Zoom call in progress"])
            recording.kill()
            self.wait_for("end of the call", lambda: len(self.messages()) == 2, 20)  # the application still runs
        finally:
            for process in [call, recording]:
                process.kill()
                process.wait()

    def test_a_program_counts_until_it_ends_though_nobody_asks_for_its_status(self):
        entries = self.downloads.parent / "data/applications"
        entries.mkdir()
        os.mkfifo(entries / "waits-for-ever.desktop")  # a folder of the user's may hold anything
        program = shutil.copy(shutil.which("sleep"), self.downloads.parent / "HandBrakeCLI")
        self.choose()
        self.launch()
        careless = subprocess.Popen([sys.executable, "-c", "import os, sys, time\n"
                                     "os.spawnv(os.P_NOWAIT, sys.argv[1], [sys.argv[1], '15'])\n"
                                     "time.sleep(1000)", program])
        try:
            self.wait_for("encoding", lambda: inhibitors() == [("idle", "HandBrake encoding")], 14)
            self.wait_for("its end", lambda: self.messages()[:1] == ["Cooldown started"], 30)
            self.assertIsNone(careless.poll())
        finally:
            careless.kill()
            careless.wait()

    def test_notifications_tell_of_both_changes(self):
        def shown():
            history = subprocess.run(["dunstctl", "history"], capture_output=True, text=True).stdout
            return re.findall(r'"summary" : \{\s*"type" : "s",\s*"data" : "([^"]*)"', history)

        self.choose()
        bed("restart", "dunst")  # no history of other tests
        self.launch()
        self.download("R&D <b>x.part")
        displayed = ["dunstctl", "count", "displayed"]
        self.wait_for("notification", lambda: subprocess.run(displayed, capture_output=True).stdout == b"1\n")
        (self.downloads / "R&D <b>x.part").unlink()
        self.wait_for("closing of the first", lambda: shown()[:1] == ["orrinvale Active"])
        self.wait_for("second", lambda: subprocess.run(displayed, capture_output=True).stdout == b"1\n")
        subprocess.run(["dunstctl", "close-all"], check=True)
        self.assertEqual(shown()[:2], ["orrinvale Inactive", "orrinvale Active"])


if __name__ == "__main__":
    unittest.main()
