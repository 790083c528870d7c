#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The windows under a real mouse and keyboard."""
import datetime
import json
import os
import re
import shutil
import subprocess
import time
import unittest
from pathlib import Path

from desktop import PROGRAM, DesktopTest, inhibitors, visible_windows

POPOVER = (340, 700)
ROWS = {"Activity Log": (170, 540), "Settings": (170, 596)}  # in the popover
LOG, SETTINGS, ONBOARDING = "^orrinvale — Activity Log$", "^orrinvale Settings$", "^Welcome to orrinvale$"
CLEAR, EXPORT = (495, 36), (578, 36)
START_AT_LOGIN = (485, 329)
TILES = {"Light": (91, 182), "Dark": (211, 182), "System": (331, 182), "Sakura": (451, 182)}
WHOLE = 1426  # a height of the settings at which nothing scrolls
SWITCHES = {"launchAtLogin": 329, "notificationsEnabled": 435, "pauseOnLowBattery": 573, "onlyWhenPluggedIn": 630,
            "cpuSignalEnabled": 753, "networkSignalEnabled": 810}
CHOOSE, SLIDER, ADD_APP, DELETE = (468, 867), 988, (87, 1233), (495, 1156)
WINDOW_COLOURS = {"light": "F5F5F5", "dark": "171717", "sakura": "FCF2F5"}


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True).stdout


class WindowsTest(DesktopTest):
    def open(self, row, title):
        subprocess.run([PROGRAM], check=True, timeout=10)  # the second start opens the popover
        popover = self.wait_for_window("^orrinvale$")
        time.sleep(0.2)
        self.click(popover, ROWS[row])
        window = self.wait_for_window(title)
        time.sleep(0.3)
        return window

    def wait_for_window(self, title):
        found = []

        def looks():
            found[:] = visible_windows(title)
            return found

        self.wait_for(title, looks, 5)
        return found[-1]

    def wait_for_end_of(self, title):
        self.wait_for("end of " + title, lambda: not visible_windows(title), 5)

    def click(self, window, place):
        xdotool("mousemove", "--window", window, *place, "click", 1)

    def colour(self, window, place):
        told = subprocess.run(["xwininfo", "-id", window], capture_output=True, text=True).stdout
        x, y = (int(re.search(rf"Absolute upper-left {axis}: *(-?\d+)", told)[1]) for axis in "XY")
        at = f"1x1+{x + place[0]}+{y + place[1]}"
        pixel = subprocess.run(["import", "-window", "root", "-crop", at, "-depth", "8", "rgb:-"], capture_output=True)
        return pixel.stdout.hex().upper()

    def wait_for_colour(self, window, place, colour, limit=3):
        self.wait_for(f"{colour} but {self.colour(window, place)}", lambda: self.colour(window, place) == colour, limit)

    def setting(self, name):
        return json.loads(self.settings.read_text()).get("orrinvale." + name)

    def show_all_of(self, settings, from_y):
        """So high that nothing scrolls, and so that what lies below `from_y` is on the screen."""
        xdotool("windowsize", "--sync", settings, 540, WHOLE)
        xdotool("windowmove", settings, 300, 40 - from_y)
        time.sleep(0.3)


class LogWindowTest(WindowsTest):
    def fill_log(self):
        now = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0)
        self.support.mkdir(parents=True)
        entries = [{"id": f"00000000-0000-4000-8000-00000000000{i}", "date": now.isoformat().replace("+00:00", "Z"),
                    "message": message, "category": category}
                   for i, (message, category) in enumerate([("Off for now", "idle"), ("Waiting", "cooldown"),
                                                            ("A film é", "awake")])]
        (self.support / "activity_log.json").write_text(json.dumps(entries))

    def test_a_day_is_selected_with_the_mouse_and_with_the_keyboard(self):
        self.launch()
        log = self.open("Activity Log", LOG)
        # In the column of ten weeks before the last one and in the fourth row; the ring lies around it.
        left, top = 20 + 44 + 142 + 15 * 10, 94 + 15 * 3 + 50
        self.click(log, (left + 6, top + 6))
        self.wait_for_colour(log, (left + 6, top - 2), "2E944D")
        xdotool("key", "Right")
        self.wait_for_colour(log, (left + 15 + 6, top - 2), "2E944D")
        self.assertNotEqual(self.colour(log, (left + 6, top - 2)), "2E944D")
        xdotool("key", "Escape")
        self.wait_for_end_of(LOG)

    def test_the_log_is_exported_and_then_cleared(self):
        self.fill_log()
        self.launch()
        log = self.open("Activity Log", LOG)
        self.click(log, EXPORT)
        self.wait_for_window("^Export$")
        target = Path(os.environ["HOME"], "exported.txt")
        xdotool("type", target)
        xdotool("key", "Return")
        self.wait_for("the export", target.exists)
        lines = target.read_text().split("\n")
        times = r"\[\d+:\d\d:\d\d\s?([AP]M)?\] "
        for line, rest in zip(lines, ["[Idle] Off for now", "[Cooling Down] Waiting", "[Awake] A film é"], strict=True):
            self.assertRegex(line, times + re.escape(rest) + "$")
        self.wait_for_end_of("^Export$")
        self.click(log, CLEAR)
        self.wait_for("an empty log", lambda: json.loads((self.support / "activity_log.json").read_text()) == [])


class SettingsWindowTest(WindowsTest):
    def test_each_switch_writes_at_once(self):
        self.choose(launchAtLogin=False, notificationsEnabled=True, pauseOnLowBattery=True, onlyWhenPluggedIn=False,
                    cpuSignalEnabled=False, networkSignalEnabled=False)
        self.launch()
        settings = self.open("Settings", SETTINGS)
        for name, y in SWITCHES.items():
            before = self.setting(name)
            self.show_all_of(settings, y - 300)
            self.click(settings, (485, y))
            self.wait_for(name, lambda: self.setting(name) is not before, 2)
            self.assertIs(self.setting(name), not before)
        entry = Path(os.environ["XDG_CONFIG_HOME"], "autostart/orrinvale.desktop")
        self.assertTrue(entry.exists(), "the start at login is registered")

    def test_the_slider_is_dragged(self):
        self.launch()
        settings = self.open("Settings", SETTINGS)
        self.show_all_of(settings, SLIDER - 300)
        xdotool("mousemove", "--window", settings, 270, SLIDER, "mousedown", 1)
        for x in range(270, 494, 8):
            xdotool("mousemove", "--window", settings, x, SLIDER)
        xdotool("mousemove", "--window", settings, 520, SLIDER, "mouseup", 1)
        self.wait_for("the value", lambda: self.setting("cpuSensitivity") == 1, 2)
        xdotool("key", "Home")
        self.wait_for("the value", lambda: self.setting("cpuSensitivity") == 0, 2)

    def test_another_downloads_folder_is_watched(self):
        other = Path(os.environ["HOME"], "other")
        other.mkdir()
        self.launch()
        settings = self.open("Settings", SETTINGS)
        self.show_all_of(settings, CHOOSE[1] - 300)
        self.click(settings, CHOOSE)
        self.wait_for_window("^Downloads Folder$")
        xdotool("type", other)
        xdotool("key", "Return")
        self.wait_for("the setting", lambda: self.setting("downloadsFolderPath") == str(other))
        (other / "film.mkv.part").write_text("x")
        self.wait_for("the inhibitor", inhibitors)

    def test_an_application_is_picked_and_keeps_the_machine_awake_until_it_is_deleted(self):
        program = shutil.copy(shutil.which("sleep"), Path(os.environ["HOME"], "nightrender"))
        entries = Path(os.environ["XDG_DATA_HOME"], "applications")
        entries.mkdir()
        (entries / "org.example.NightRender.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Night Render\nExec={program}\n")
        self.launch()
        running = subprocess.Popen([program, "60"])
        self.launched.append(running)
        settings = self.open("Settings", SETTINGS)
        self.show_all_of(settings, ADD_APP[1] - 300)
        self.click(settings, ADD_APP)
        time.sleep(1)  # the sheet appears and its list loads
        xdotool("type", "night")
        xdotool("key", "Down")
        xdotool("key", "Return")
        xdotool("key", "Return")
        self.wait_for("the row", lambda: self.setting("customProcesses"), 3)
        self.wait_for("the inhibitor", inhibitors)
        self.assertEqual([why for _, why in inhibitors()], ["Night Render active"])
        self.show_all_of(settings, DELETE[1] - 300)
        self.click(settings, DELETE)
        self.wait_for("the cooldown", lambda: any("ooldown" in text or "ooling" in text for text in self.messages()), 20)


class AppearanceTest(WindowsTest):
    def setUp(self):
        super().setUp()
        script = Path(__file__).parents[1] / "platform/settings_portal.py"
        self.portal = subprocess.Popen(["/usr/bin/python3", script], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       text=True)
        self.launched.append(self.portal)
        self.addCleanup(self.portal.stdin.close)
        self.addCleanup(self.portal.stdout.close)
        self.portal.stdout.readline()

    def turn(self, scheme):
        self.portal.stdin.write(f"org.freedesktop.appearance color-scheme uint32 {scheme}\n")
        self.portal.stdin.flush()

    def test_open_windows_follow_the_desktop_within_a_second_and_sakura_does_not(self):
        self.turn(2)
        self.choose(appTheme="System")
        self.launch()
        log = self.open("Activity Log", LOG)
        settings = self.open("Settings", SETTINGS)
        xdotool("windowmove", log, 10, 80)
        xdotool("windowmove", settings, 700, 80)
        time.sleep(0.3)
        for scheme, look in [(1, "dark"), (2, "light")]:
            self.turn(scheme)
            for window in [log, settings]:
                self.wait_for_colour(window, (6, 90), WINDOW_COLOURS[look], 1)
        self.click(settings, TILES["Sakura"])
        self.wait_for_colour(log, (6, 90), WINDOW_COLOURS["sakura"], 1)
        self.turn(1)
        time.sleep(0.5)
        for window in [log, settings]:
            self.assertEqual(self.colour(window, (6, 90)), WINDOW_COLOURS["sakura"])


class OnboardingTest(WindowsTest):
    def setUp(self):
        super().setUp()
        self.choose(hasSeenOnboarding=False)

    def test_only_its_button_ends_it_and_it_does_not_come_back(self):
        self.launch()
        window = self.wait_for_window(ONBOARDING)
        time.sleep(0.3)
        for key in ["alt+F4", "Escape"]:
            xdotool("windowfocus", "--sync", window, "key", key)
        time.sleep(0.3)
        self.assertIn(window, visible_windows(ONBOARDING))
        self.click(window, (240, 470))
        self.wait_for_end_of(ONBOARDING)
        self.assertIs(self.setting("hasSeenOnboarding"), True)

    def test_the_application_ends_with_it_open_and_shows_it_again(self):
        for _ in range(2):
            self.launch()
            self.wait_for_window(ONBOARDING)
            self.program.terminate()
            self.assertEqual(self.program.wait(3), 0)
        self.assertIs(self.setting("hasSeenOnboarding"), False)


if __name__ == "__main__":
    unittest.main()
