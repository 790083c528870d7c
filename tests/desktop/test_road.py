#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The main job, on a logind that suspends by itself after three seconds of idleness."""
import signal
import subprocess
import time
import unittest

from desktop import PROGRAM, DesktopTest, bed, inhibitors, suspends


class RoadTest(DesktopTest):
    def test_a_download_keeps_the_machine_awake_and_its_end_lets_it_sleep_after_the_cooldown(self):
        self.choose()
        self.launch()
        self.download()
        self.wait_for("inhibitor", inhibitors, 2)
        self.assertEqual(inhibitors(), [("idle", "Downloading film.mkv.part")])
        before = suspends()
        for _ in range(16):
            self.download()
            time.sleep(0.5)
            self.assertEqual(suspends(), before, "suspended during a download")
        (self.downloads / "film.mkv.part").rename(self.downloads / "film.mkv")
        renamed = time.monotonic()
        while inhibitors():
            self.assertEqual(suspends(), before, "suspended during the cooldown")
            time.sleep(0.1)
            self.assertLess(time.monotonic() - renamed, 33)
        self.assertGreater(time.monotonic() - renamed, 29)
        self.wait_for("suspend", lambda: suspends() > before, 15)
        self.assertEqual(self.messages(), ["Cooldown complete — system may sleep", "Cooldown started",
                                           "Downloading film.mkv.part"])

    def test_a_killed_application_holds_nothing(self):
        self.launch()
        self.download()
        self.wait_for("inhibitor", inhibitors)
        self.program.send_signal(signal.SIGKILL)
        self.program.wait()
        self.program = None
        self.wait_for("release", lambda: not inhibitors())

    def test_a_logind_that_forgot_everything_is_asked_again_within_five_seconds(self):
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("inhibitor", inhibitors)
        bed("restart", "logind", "--wipe")
        self.wait_for("inhibitor", inhibitors, 5)
        self.assertEqual(inhibitors(), [("idle", "Manual mode")])

    def test_signals_end_it_with_status_0_and_free_the_inhibitor(self):
        for number in [signal.SIGTERM, signal.SIGINT, signal.SIGHUP]:
            self.choose(wakeMode="Always Awake")
            self.launch()
            self.wait_for("inhibitor", inhibitors)
            self.program.send_signal(number)
            self.assertEqual(self.program.wait(5), 0)
            self.assertEqual(inhibitors(), [])

    def test_a_second_start_ends_with_status_0_and_leaves_one_application(self):
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("inhibitor", inhibitors)
        self.assertEqual(subprocess.run([PROGRAM], timeout=5).returncode, 0)
        self.stays_up(0.3)
        self.assertEqual(len(inhibitors()), 1)

    def test_a_start_after_a_kill_is_a_first_one(self):
        self.launch()
        self.program.kill()
        self.program.wait()
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("inhibitor", inhibitors)

    def test_off_holds_nothing(self):
        self.choose(wakeMode="Off")
        self.launch()
        self.download()
        self.stays_up()
        self.assertEqual(inhibitors(), [])


if __name__ == "__main__":
    unittest.main()
