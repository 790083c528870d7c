#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The feedback window on an X server: its frame, its keys, its colours."""
import re
import subprocess
import time
import unittest

from feedback import FeedbackTest, wait_for

TELL = "<script>const tell = (name, value) => fetch('/tell?' + name + '=' + encodeURIComponent(value));</script>"
KEYS = TELL + "<script>addEventListener('keydown', event => tell('key', event.key))</script>"
FIELD = KEYS + "<input autofocus oninput=\"tell('typed', this.value)\">"


def run(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout.strip()


def windows(process):
    """The visible windows of the process on the screen."""
    return run("xdotool", "search", "--all", "--onlyvisible", "--pid", str(process.pid), "--name", ".*").split()


class WindowTest(FeedbackTest):
    def show(self, page="<h1>Form</h1>", *arguments):
        self.server.pages["/form"] = page
        program = self.start(self.server.address(), *arguments)
        self.wait_for_line(program, "loaded")
        self.window = wait_for("window", lambda: run("xdotool", "search", "--all", "--onlyvisible", "--pid",
                                                     str(program.process.pid), "--name", "^Feedback$"))
        self.wait_until_active(self.window)
        return program

    def wait_until_active(self, window):
        wait_for("focus", lambda: run("xdotool", "getactivewindow") == window)

    def colour(self, x, y):
        shot = ["import", "-window", self.window, "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"]
        return subprocess.run(shot, capture_output=True).stdout.hex()

    def press(self, *keys):
        subprocess.run(["xdotool", "key", "--delay", "50", *keys], check=True)

    def wait_for_keys(self):
        """The engine drops keys until the page has been painted."""
        wait_for("key", lambda: self.press("F6") or "key" in self.server.told)

    def click(self, x, y):
        subprocess.run(["xdotool", "mousemove", "--window", self.window, str(x), str(y), "click", "1"], check=True)

    def test_its_frame(self):
        self.show()
        left, top, width, height = map(int, re.findall(r"(?:Absolute.*|Width|Height): +(\d+)",
                                                       run("xwininfo", "-id", self.window)))
        self.assertEqual((width, height), (520, 640))
        self.assertAlmostEqual(left + width / 2, 640, delta=2)
        self.assertAlmostEqual(top + height / 2, 400, delta=20)  # the title bar takes its share
        hints = run("xprop", "-id", self.window, "WM_NORMAL_HINTS", "_MOTIF_WM_HINTS", "WM_CLASS")
        self.assertIn("minimum size: 380 by 420", hints)
        functions = int(re.search(r"_MOTIF_WM_HINTS\(_MOTIF_WM_HINTS\) = \w+, (\w+)", hints).group(1), 16)
        resize, move, minimize, maximize, close = (functions >> bit & 1 for bit in range(1, 6))
        self.assertEqual((resize, move, minimize, maximize, close), (1, 1, 0, 1, 1))

    def test_escape_closes_it_with_the_focus_in_the_form(self):
        program = self.show(FIELD)
        self.wait_for_keys()
        self.press("h")
        wait_for("typing", lambda: self.server.told.get("typed") == "h")
        self.press("Escape")
        self.assertEqual(program.ended(), 0)
        wait_for("end of its helpers", lambda: not program.processes(), 3)

    def test_escape_is_the_forms_when_it_takes_it(self):
        program = self.show(FIELD + """<script>addEventListener('keydown', event => { if (event.key == 'Escape') {
          event.preventDefault(); tell('escape', 'taken'); } })</script>""")
        self.wait_for_keys()
        self.press("Escape")
        wait_for("the key", lambda: self.server.told.get("escape") == "taken")
        time.sleep(0.5)
        self.assertIsNone(program.process.poll())

    def test_escape_closes_a_form_that_failed(self):
        program = self.start("http://127.0.0.1:1/")
        self.wait_for_line(program, "failed")
        window = wait_for("window", lambda: windows(program.process))[0]
        self.wait_until_active(window)
        self.press("Escape")
        self.assertEqual(program.ended(), 0)

    def test_the_tab_key_goes_round_the_form(self):
        self.show(KEYS + "<input id=a autofocus><input id=b>"
                  "<script>setInterval(() => tell('at', document.hasFocus() && document.activeElement.id), 50)</script>")
        self.wait_for_keys()
        for key, field in [("F6", "a"), ("Tab", "b"), ("Tab", "a"), ("shift+Tab", "b")]:
            self.press(key)
            wait_for(f"focus in {field}", lambda: self.server.told.get("at") == field)

    def test_its_close_button_ends_it(self):
        program = self.show()
        subprocess.run(["xdotool", "key", "alt+F4"], check=True)
        self.assertEqual(program.ended(), 0)
        wait_for("end of its helpers", lambda: not program.processes(), 3)

    def test_the_order_to_raise_brings_it_in_front_of_others(self):
        program = self.show()
        first = self.window
        self.show()
        program.order("raise")
        self.wait_until_active(first)

    def test_links_into_a_new_window_open_none(self):
        fill = "style='position:fixed; inset:0; background:#abcdef'"
        self.server.pages["/elsewhere"] = "<h1>Elsewhere</h1>"
        program = self.show(TELL + f"<a target=_blank href=/elsewhere {fill} onclick=\"tell('clicked', '')\">Link</a>")
        wait_for("the page", lambda: self.colour(260, 400) == "abcdef")
        self.click(260, 400)
        wait_for("click", lambda: "clicked" in self.server.told)
        time.sleep(1)
        self.assertEqual(windows(program.process), [self.window])
        self.assertNotIn("/elsewhere", self.server.paths())

    def test_choosing_a_file_opens_no_dialog(self):
        program = self.show(TELL + """<input type=file style="position:fixed; inset:0; background:#abcdef"
          onclick="tell('clicked', '')" onchange="tell('chosen', this.files.length)">""")
        wait_for("the page", lambda: self.colour(260, 600) == "abcdef")
        self.click(40, 85)
        wait_for("click", lambda: "clicked" in self.server.told)
        time.sleep(1)
        self.assertEqual(windows(program.process), [self.window])
        self.assertNotIn("chosen", self.server.told)

    def test_the_form_fills_all_below_the_header(self):
        self.show("<body style='margin:0; background:#abcdef'>")
        for x, y in [(0, 74), (519, 74), (0, 639), (519, 639)]:
            wait_for("the page", lambda: self.colour(x, y) == "abcdef")
        self.assertNotEqual(self.colour(0, 73), "abcdef")
        subprocess.run(["xdotool", "windowsize", "--sync", self.window, "700", "450"], check=True)
        wait_for("the resized page", lambda: self.colour(699, 449) == "abcdef")

    def test_a_form_without_a_ground_lies_on_the_windows(self):
        self.show("<p>Transparent</p>", "--look", "sakura")
        wait_for("the window's colour", lambda: self.colour(400, 400) == "fcf2f5")

    def test_its_colours_follow_the_look(self):
        program = self.show("<p>Form</p>", "--look", "dark")
        for look, header, rule in [("dark", "1f1f1f", "40985a"), ("light", "fcfcfc", "6cc487"),
                                   ("sakura", "fef9fb", "e490ab")]:
            program.order("look " + look)
            wait_for(look + " header", lambda: self.colour(300, 4) == header, 3)
            for part, wanted in zip(bytes.fromhex(self.colour(300, 72)), bytes.fromhex(rule)):
                self.assertAlmostEqual(part, wanted, delta=1)


if __name__ == "__main__":
    unittest.main()
