#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""What the session may do to a process: closed descriptors, outputs that nobody reads, limits, huge and hostile files.
The application stays up, holds its inhibitor, and its main thread answers within a second."""
import os
import resource
import socket
import subprocess
import termios
import time
import unittest
from pathlib import Path
from unittest import mock

from desktop import ORDINARY, PROGRAM, DesktopTest, inhibitors

SECOND = 1.0


class LimitsTest(DesktopTest):
    def end(self):
        self.program.terminate()
        self.assertEqual(self.program.wait(5), 0)

    def ping(self):
        """Seconds until the main thread has taken a call; a second start is one."""
        with socket.socket(socket.AF_UNIX) as call:
            call.settimeout(20)
            begin = time.monotonic()
            call.connect(str(Path(os.environ["XDG_RUNTIME_DIR"]) / "orrinvale.socket"))
            call.recv(1)
            return time.monotonic() - begin

    def peak_megabytes(self):
        status = Path(f"/proc/{self.program.pid}/status").read_text()
        return int(status.split("VmHWM:")[1].split()[0]) / 1024

    def launch_with(self, **options):
        self.program = subprocess.Popen([PROGRAM], **options)
        self.launched.append(self.program)
        Path(os.environ["HOME"], "output").touch()
        self.wait_for("the application", lambda: (Path(os.environ["XDG_RUNTIME_DIR"]) / "orrinvale.socket").exists())

    def holds_a_download(self):
        path = self.download()
        self.wait_for("inhibitor", inhibitors)
        os.unlink(path)

    def test_missing_standard_descriptors(self):
        for missing in [(0, 1, 2), (0,), (1,), (2,), (1, 2)]:
            with self.subTest(missing):
                self.launch_with(preexec_fn=lambda: [os.close(number) for number in missing])
                self.holds_a_download()
                for number in missing:
                    self.assertEqual(os.readlink(f"/proc/{self.program.pid}/fd/{number}"), "/dev/null")
                self.end()
                self.wait_until_free()

    def test_a_full_pipe_holds_nothing_up(self):
        reading, writing = os.pipe()
        os.set_blocking(writing, False)
        try:
            while True:
                os.write(writing, b"x" * 4096)
        except BlockingIOError:
            os.set_blocking(writing, True)
        self.downloads.rmdir()  # a console line
        self.launch_with(stdout=writing)
        time.sleep(SECOND)
        self.assertLess(self.ping(), SECOND)
        self.downloads.mkdir()
        self.download()
        self.wait_for("inhibitor", inhibitors)
        self.end()
        os.close(reading)
        os.close(writing)

    def test_a_stopped_terminal_holds_nothing_up(self):
        controlling, terminal = os.openpty()
        termios.tcflow(terminal, termios.TCOOFF)
        self.downloads.rmdir()
        self.launch_with(stdout=terminal)
        time.sleep(SECOND)
        self.assertLess(self.ping(), SECOND)
        self.end()
        os.close(controlling)
        os.close(terminal)

    def test_a_limit_on_the_size_of_files_is_survived(self):
        self.choose(wakeMode="Always Awake")
        before = self.settings.read_bytes()
        self.launch_with(preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0)))
        self.wait_for("inhibitor", inhibitors)
        self.stays_up(1)
        self.assertEqual(self.settings.read_bytes(), before)
        self.end()

    def test_a_huge_log_and_usage_file_are_set_aside_at_once(self):
        self.support.mkdir(parents=True)
        for name in ["activity_log.json", "app_usage.json"]:
            with open(self.support / name, "wb") as file:
                file.truncate(3 << 30)
        self.choose(wakeMode="Always Awake")
        begin = time.monotonic()
        self.launch()
        self.assertLess(self.wait_for("inhibitor", inhibitors) - begin, 5)
        self.assertLess(self.ping(), SECOND)
        self.assertLess(self.peak_megabytes(), 200)
        self.wait_for("new log", lambda: self.messages() == ["Manual mode"])
        for name in ["activity_log.json.unreadable", "app_usage.json.unreadable"]:
            self.assertEqual((self.support / name).stat().st_size, 3 << 30)

    def test_settings_that_nest_deep_are_set_aside(self):
        self.settings.write_bytes(b'{"a":' + b"[" * 80_000 + b"]" * 80_000 + b"}")
        self.launch()
        self.stays_up(0.5)
        self.assertTrue(self.settings.with_name("settings.json.unreadable").exists())
        self.assertEqual(self.output(), "")

    def test_a_log_that_nests_deep_is_an_empty_log(self):
        self.support.mkdir(parents=True)
        log = self.support / "activity_log.json"
        log.write_bytes(b"[" * 100_000 + b"]" * 100_000)
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("new log", lambda: log.stat().st_size < 1000 and self.messages() == ["Manual mode"])

    def test_settings_closed_to_the_user_are_left_alone_and_taken_up_again(self):
        self.choose(wakeMode="Always Awake", appTheme="Dark")
        before = self.settings.read_bytes()
        self.settings.chmod(0)
        self.launch(*ORDINARY)
        self.stays_up(1)
        self.settings.chmod(0o600)
        self.assertEqual(self.settings.read_bytes(), before)
        self.assertEqual([file.name for file in self.settings.parent.iterdir()], ["settings.json"])
        self.end()

    def test_a_bus_that_hangs_at_the_start_does_not_keep_it_from_ending(self):
        path = os.environ["HOME"] + "/bus"
        with socket.socket(socket.AF_UNIX) as bus, mock.patch.dict(os.environ,
                                                                   DBUS_SESSION_BUS_ADDRESS=f"unix:path={path}"):
            bus.bind(path)
            bus.listen(8)
            hanging = subprocess.Popen([PROGRAM])
            self.launched.append(hanging)
            time.sleep(2)
            begin = time.monotonic()
            hanging.terminate()
            hanging.wait(15)
            self.assertLess(time.monotonic() - begin, 8)

    def test_locales_of_any_length(self):
        for language in ["a" * 12, "x" * 250, "de" * 5000, "e_" * 40, "@" * 30]:
            with self.subTest(language[:20]), mock.patch.dict(os.environ, LC_ALL=language):
                self.launch()
                self.assertLess(self.ping(), 5)
                self.stays_up(0.5)
                self.end()


if __name__ == "__main__":
    unittest.main()
