#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The prompt for feedback: the application, the program that shows the form, and a form on the loopback interface."""
import datetime
import http.server
import json
import os
import shutil
import signal
import subprocess
import threading
import time
import unittest
from pathlib import Path

from desktop import PROGRAM, DesktopTest
from test_windows import SETTINGS, WindowsTest

OPEN = (473, 1353)  # in the settings at a height at which nothing scrolls, with no application on the watch list


class Form(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        self.server.asked += 1
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        self.wfile.write(b"<h1>Form</h1>")

    def log_message(self, *_):
        pass


class FeedbackTest(DesktopTest):
    """The application in a folder of its own, with or without the program beside it."""

    def setUp(self):
        super().setUp()
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Form)
        self.server.asked = 0
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        os.environ["ORRINVALE_FEEDBACK_FORM"] = f"http://127.0.0.1:{self.server.server_port}/form"
        if os.geteuid() == 0:
            os.environ["QTWEBENGINE_DISABLE_SANDBOX"] = "1"  # the engine refuses to run as root with it
        self.folder = Path(os.environ["HOME"], "programs")
        self.folder.mkdir()
        shutil.copy(PROGRAM, self.folder / "orrinvale")

    def tearDown(self):
        self.server.shutdown()
        self.server.server_close()
        super().tearDown()

    def start(self):
        self.launch(str(self.folder / "orrinvale"))

    def install_form(self):
        (self.folder / "orrinvale-feedback").symlink_to(os.environ["FEEDBACK"])

    def used_for(self, days, **settings):
        first = datetime.datetime.now(datetime.timezone.utc) - datetime.timedelta(days=days, minutes=5)
        self.choose(hasSeenOnboarding=True, firstLaunchDate={"date": first.strftime("%Y-%m-%dT%H:%M:%SZ")}, **settings)

    def stored(self, name):
        return json.loads(self.settings.read_text()).get("orrinvale." + name)

    def windows(self):
        """(window, its process) of each feedback window on the screen."""
        def ask(*command):
            return subprocess.run(["xdotool", *command], capture_output=True, text=True).stdout.split()
        found = [(window, ask("getwindowpid", window)) for window in ask("search", "--onlyvisible", "--name", "^Feedback$")]
        return [(window, int(process[0])) for window, process in found if process]  # a window that went has none

    def helpers(self):
        """The processes that came from the application and have not ended."""
        found = []
        for folder in Path("/proc").glob("[0-9]*"):
            try:
                name = (folder / "cmdline").read_bytes().split(b"\0")[0]
                home = f"HOME={os.environ['HOME']}".encode() in (folder / "environ").read_bytes().split(b"\0")
            except OSError:
                continue
            if home and (b"orrinvale-feedback" in name or b"QtWebEngine" in name):
                found.append(int(folder.name))
        return found

    def wait_for_form(self):
        self.wait_for("feedback window", self.windows)
        self.wait_for("request for the form", lambda: self.server.asked)
        return self.windows()[0]

    def escape(self, window):
        self.wait_for("focus", lambda: subprocess.run(["xdotool", "getactivewindow"], capture_output=True,
                                                      text=True).stdout.strip() == window)
        self.wait_for("end of the window", lambda: subprocess.run(["xdotool", "key", "Escape"]) and not self.windows())

    def memory(self):
        """Resident kilobytes: unlike the proportional ones they do not depend on who else uses the same libraries."""
        rollup = Path(f"/proc/{self.program.pid}/smaps_rollup").read_text()
        return int(next(line for line in rollup.splitlines() if line.startswith("Rss:")).split()[1])

    def end(self):
        self.program.terminate()
        self.assertEqual(self.program.wait(5), 0)
        self.program = None
        self.wait_until_free()


class PromptTest(FeedbackTest):
    def test_the_prompt_comes_once_and_leaves_nothing_behind(self):
        self.install_form()
        self.used_for(4, hasShownFeedbackPrompt=True)
        self.start()
        time.sleep(3)
        self.assertEqual(self.windows(), [])
        without = self.memory()
        self.end()

        self.used_for(4)
        self.start()
        window, process = self.wait_for_form()
        self.assertNotEqual(process, self.program.pid)
        self.assertNotIn("WebEngine", Path(f"/proc/{self.program.pid}/maps").read_text())
        self.assertTrue(self.stored("hasShownFeedbackPrompt"))
        time.sleep(1)
        self.escape(window)
        self.wait_for("end of its processes", lambda: not self.helpers(), 3)
        time.sleep(2)
        after = self.memory()
        print(f"resident without the window {without} KB, after it {after} KB")
        self.assertLess(after - without, 1024)
        self.end()

        self.start()
        time.sleep(1)
        self.assertEqual(self.windows(), [])
        self.assertEqual(self.server.asked, 1)

    def test_there_is_no_prompt_before_three_days(self):
        self.install_form()
        self.used_for(2)
        self.start()
        time.sleep(1)
        self.assertEqual(self.windows(), [])
        self.assertFalse(self.stored("hasShownFeedbackPrompt"))

    def test_without_the_program_there_is_no_prompt_and_none_counts_as_shown(self):
        self.used_for(4)
        self.start()
        time.sleep(1)
        self.assertEqual(self.windows(), [])
        self.assertFalse(self.stored("hasShownFeedbackPrompt"))

    def test_a_program_that_breaks_down_is_replaced_by_such_a_window(self):
        program = self.folder / "orrinvale-feedback"
        program.write_text("#!/bin/sh\nkill -ABRT $$\n")
        program.chmod(0o755)
        self.used_for(4)
        self.start()
        self.wait_for("feedback window", self.windows)
        self.assertEqual([process for _, process in self.windows()], [self.program.pid])

    def test_the_window_goes_with_the_application(self):
        self.install_form()
        for number in [signal.SIGTERM, signal.SIGKILL]:
            self.server.asked = 0
            self.used_for(4)
            self.start()
            self.wait_for_form()
            self.program.send_signal(number)
            self.program.wait(5)
            self.program = None
            self.wait_for("end of the window", lambda: not self.windows(), 3)
            self.wait_for("end of its processes", lambda: not self.helpers(), 3)


class SettingsTest(FeedbackTest, WindowsTest):
    def test_the_settings_open_the_form_and_close_the_one_they_opened_before(self):
        self.install_form()
        self.used_for(0)
        self.start()
        settings = self.open("Settings", SETTINGS)
        self.show_all_of(settings, 1000)
        self.click(settings, OPEN)
        _, first = self.wait_for_form()
        subprocess.run(["xdotool", "windowactivate", "--sync", settings], check=True)
        self.click(settings, OPEN)
        self.wait_for("another window alone", lambda: first not in [process for _, process in self.windows() or [(0, first)]])
        self.wait_for("second request", lambda: self.server.asked == 2)
        self.stays_up(0.5)


if __name__ == "__main__":
    unittest.main()
