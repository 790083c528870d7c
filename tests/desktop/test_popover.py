#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The tray item and its popover under a real mouse and keyboard, in a real panel."""
import json
import os
import random
import shutil
import subprocess
import time
import unittest

from desktop import PROGRAM, DesktopTest, bed, inhibitors, visible_windows

PANEL = 28     # its height; it lies along the upper edge of a screen of 1280 by 800
ELSEWHERE = (200, 600)
SIZE = (340, 700)
MARGIN = 8  # that it keeps from the sides of the screen
SEGMENTS = {"Smart": (70, 386), "Always Awake": (170, 386), "Off": (270, 386)}  # in the popover
QUIT = (170, 652)
WATCHER = "org.kde.StatusNotifierWatcher"
SAME_CLICK = 0.4  # so long a click after one elsewhere may be the same one


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True).stdout


class PopoverTest(DesktopTest):
    panel = (0, 0, 1280)  # its left, top and width

    def start(self, program=PROGRAM, **settings):
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False, **settings)
        xdotool("mousemove", *ELSEWHERE)
        self.launch(program)
        self.wait_for("tray item", self.resting_item)

    def tray_item(self):
        """The middle of what the panel shows at its right end; None while that is empty, or more than one item."""
        width = 200
        left, top = self.panel[0] + self.panel[2] - width, self.panel[1]
        strip = subprocess.run(["import", "-window", "root", "-crop", f"{width}x{PANEL - 4}+{left}+{top + 2}",
                                "-depth", "8", "gray:-"], capture_output=True).stdout
        inked = [x for x in range(width) if any(abs(grey - strip[0]) > 24 for grey in strip[x::width])]
        if not inked or inked[-1] - inked[0] > PANEL:
            return None
        return left + (inked[0] + inked[-1]) // 2, top + PANEL // 2

    def popover(self, size=SIZE):
        """Where the window of that size is, or None while there is none."""
        for window in visible_windows("^orrinvale$"):
            lines = xdotool("getwindowgeometry", "--shell", window).split()
            values = dict(line.split("=", 1) for line in lines)
            if (int(values.get("WIDTH", 0)), int(values.get("HEIGHT", 0))) == size:
                return int(values["X"]), int(values["Y"])
        return None

    def click(self, place, button=1):
        xdotool("mousemove", *place, "click", button)

    def click_item(self, button=1):
        self.click(self.tray_item(), button)

    def resting_item(self):
        """The same once it no longer moves: a starting panel arranges itself for a while."""
        place = self.tray_item()
        time.sleep(0.3)
        return place if place == self.tray_item() else None

    def item(self):
        """Service and path of our item, as its host knows it."""
        name, _, path = self.on_bus("get-property", WATCHER, "/StatusNotifierWatcher", WATCHER,
                                    "RegisteredStatusNotifierItems")[0].partition("/")
        return name, "/" + path, "org.kde.StatusNotifierItem"

    def on_bus(self, *arguments):
        reply = subprocess.run(["busctl", "--user", "--json=short", *arguments], check=True, capture_output=True,
                               text=True)
        return json.loads(reply.stdout)["data"] if reply.stdout else None

    def shown_by_item(self, name):
        return self.on_bus("get-property", *self.item(), name)

    def open(self):
        self.click_item()
        self.wait_for("popover", self.popover)
        time.sleep(0.1)  # its first frame

    def click_in_popover(self, place):
        x, y = self.popover()
        self.click((x + place[0], y + place[1]))

    def assert_opens(self):
        self.wait_for("popover", self.popover, 3)

    def assert_stands_by_the_item(self):
        x, y = self.popover()
        self.assertEqual(x, 1280 - MARGIN - SIZE[0], "the item is too near to the edge for it to be centred")
        self.assertTrue(PANEL <= y <= PANEL + 10, y)

    def assert_closes(self):
        self.wait_for("end of the popover", lambda: not self.popover(), 3)

    def assert_stays_closed(self):
        end = time.monotonic() + 0.6
        while time.monotonic() < end:
            self.assertIsNone(self.popover())
            time.sleep(0.05)

    def comes_to_rest(self):
        """Whether it stays closed: on a busy machine the panel passes a click on when it finds the time."""
        xdotool("key", "Escape")
        end = time.monotonic() + 1
        while time.monotonic() < end and not self.popover():
            time.sleep(0.05)
        return not self.popover()

    def setting(self, name):
        return json.loads(self.settings.read_text()).get("orrinvale." + name)


class ClickTest(PopoverTest):
    def test_a_click_opens_below_the_panel_and_the_second_one_closes_and_does_not_open_again(self):
        self.start()
        self.click_item()
        self.assert_opens()
        self.assert_stands_by_the_item()
        self.click_item()
        self.assert_closes()
        self.assert_stays_closed()
        self.click_item()
        self.assert_opens()

    def test_a_right_click_that_the_tray_passes_on_is_like_a_left_one(self):
        self.start()
        for shown in [True, False]:
            # xfce4-panel keeps right clicks on items without a menu for itself; others make this call.
            self.on_bus("call", *self.item(), "ContextMenu", "ii", "0", "0")
            (self.assert_opens if shown else self.assert_closes)()
            time.sleep(SAME_CLICK)

    def test_the_item_tells_the_state_in_its_tooltip_and_its_picture(self):
        self.start()
        self.assertIn("Idle: System may sleep normally", self.shown_by_item("ToolTip"))
        asleep = self.shown_by_item("IconPixmap")
        self.download("R&D <b>.part")
        escaped = "Awake: Downloading R&amp;D &lt;b&gt;.part"
        self.wait_for("tooltip", lambda: escaped in self.shown_by_item("ToolTip"), 3)
        self.assertNotEqual(self.shown_by_item("IconPixmap"), asleep)

    def test_a_click_elsewhere_and_escape_close_it(self):
        self.start()
        self.open()
        self.click(ELSEWHERE)
        self.assert_closes()
        time.sleep(SAME_CLICK)
        self.open()
        xdotool("key", "Escape")
        self.assert_closes()
        self.open()
        self.click(ELSEWHERE, 3)
        self.assert_closes()

    def test_each_mode_changes_the_setting_and_the_inhibitor_at_once(self):
        self.start()
        self.open()
        for mode, held in [("Always Awake", [("idle", "Manual mode")]), ("Off", []),
                           ("Always Awake", [("idle", "Manual mode")])]:
            self.click_in_popover(SEGMENTS[mode])
            self.wait_for("inhibitor", lambda: inhibitors() == held, 1)
            self.wait_for("setting", lambda: self.setting("wakeMode") == mode, 1)
        self.assertIsNotNone(self.popover())
        self.click_in_popover(SEGMENTS["Smart"])
        self.wait_for("setting", lambda: self.setting("wakeMode") == "Smart", 1)

    def test_keys_alone_choose_a_mode_and_quit(self):
        self.start()
        self.open()
        xdotool("key", "Right")
        self.wait_for("inhibitor", lambda: inhibitors() == [("idle", "Manual mode")], 1)
        self.assertEqual(self.setting("wakeMode"), "Always Awake")
        xdotool("key", "Tab", "Tab", "Tab", "Return")
        self.assertEqual(self.program.wait(5), 0)
        self.assertEqual(inhibitors(), [])

    def test_quit_frees_the_inhibitor_and_ends_with_status_0(self):
        self.start(wakeMode="Always Awake")
        self.wait_for("inhibitor", inhibitors)
        self.open()
        self.click_in_popover(QUIT)
        self.assertEqual(self.program.wait(5), 0)
        self.assertEqual(inhibitors(), [])

    def test_a_hasty_hand_leaves_it_in_order(self):
        self.start()
        chance = random.Random(7)
        corner = (1280 - MARGIN - SIZE[0], PANEL + 1)
        places = [self.tray_item(), self.tray_item(), ELSEWHERE,
                  *((corner[0] + x, corner[1] + y) for x, y in SEGMENTS.values())]
        for _ in range(60):
            if chance.random() < 0.15:
                xdotool("key", chance.choice(["Escape", "Right", "Tab", "space"]))
            else:
                self.click(chance.choice(places))
            time.sleep(chance.choice([0, 0.02, 0.1]))
        self.wait_for("rest", self.comes_to_rest, 20)
        self.open()
        for mode, held in [("Always Awake", [("idle", "Manual mode")]), ("Off", [])]:
            self.click_in_popover(SEGMENTS[mode])
            self.wait_for("inhibitor", lambda: inhibitors() == held, 1)
            self.wait_for("setting", lambda: self.setting("wakeMode") == mode, 1)

    def test_the_tooltip_of_a_long_reason_can_be_read(self):
        self.start()
        self.download("a long name " * 8 + ".part")
        self.wait_for("inhibitor", inhibitors)
        self.open()
        x, y = self.popover()
        below = f"300x60+{x + 20}+{y + 475}"

        def picture():
            return subprocess.run(["import", "-window", "root", "-crop", below, "-depth", "8", "gray:-"],
                                  capture_output=True).stdout
        for step in [0, 5]:
            xdotool("mousemove", x + 170 + step, y + 458)
            time.sleep(0.1)
        before = picture()
        self.wait_for("tooltip", lambda: sum(map(int.__ne__, before, picture())) > 5000, 3)
        dark = sum(grey < 64 for grey in picture())
        self.assertTrue(200 < dark < len(before) / 4, f"{dark} of {len(before)}: letters on a light ground")

    def test_without_its_films_the_picture_stays_empty(self):
        alone = shutil.copy(PROGRAM, os.environ["HOME"])
        self.start(program=alone)
        self.open()
        self.stays_up(0.5)
        x, y = self.popover()
        picture = subprocess.run(["import", "-window", "root", "-crop", f"300x200+{x + 20}+{y + 124}", "-depth", "8",
                                  "gray:-"], capture_output=True).stdout
        self.assertEqual(len(set(picture)), 1)
        self.click_in_popover(QUIT)
        self.assertEqual(self.program.wait(5), 0)


class TrayTest(PopoverTest):
    def test_a_panel_that_starts_after_us_and_one_that_starts_again_show_the_item(self):
        bed("stop", "xfce-panel")
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False)
        self.launch()
        self.stays_up(5)
        for _ in range(2):
            bed("start", "xfce-panel")
            xdotool("mousemove", *ELSEWHERE)
            self.wait_for("tray item", self.resting_item)
            self.click_item()
            self.assert_opens()
            self.click_item()
            self.assert_closes()
            bed("stop", "xfce-panel")
        bed("start", "xfce-panel")

    def test_without_any_tray_a_second_start_shows_the_popover(self):
        bed("stop", "xfce-panel")
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False)
        self.launch()
        self.assertIsNone(self.popover())
        self.assertEqual(subprocess.run([PROGRAM], timeout=5).returncode, 0)
        self.assert_opens()
        xdotool("key", "Escape")
        self.assert_closes()
        bed("start", "xfce-panel")

    def test_a_tray_of_the_older_protocol_passes_on_both_clicks(self):
        bus = os.environ.pop("DBUS_SESSION_BUS_ADDRESS")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent"
        try:
            self.start()
        finally:
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus
        for button in [1, 3]:
            self.click_item(button)
            self.assert_opens()
            self.assert_stands_by_the_item()
            self.click_item(button)
            self.assert_closes()
            self.assert_stays_closed()


class LowScreenTest(PopoverTest):
    size = (SIZE[0], 600 - 2 * 8)

    def setUp(self):
        super().setUp()
        self.display = os.environ["DISPLAY"]
        read, write = os.pipe()
        self.screen = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1024x600x24", "-nolisten",
                                        "tcp", "-noreset"], pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()

    def tearDown(self):
        super().tearDown()
        os.environ["DISPLAY"] = self.display
        self.screen.terminate()
        self.screen.wait()

    def open(self):
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False)
        self.launch()
        self.assertEqual(subprocess.run([PROGRAM], timeout=5).returncode, 0)
        self.wait_for("popover", lambda: self.popover(self.size), 3)
        time.sleep(0.1)

    def test_it_is_as_high_as_the_screen_allows_and_scrolls_to_the_rest(self):
        self.open()
        x, y = self.popover(self.size)
        self.assertEqual((x, y), (1024 - 8 - SIZE[0], 8))
        xdotool("mousemove", x + 170, y + 300, "click", "--repeat", 10, "--delay", 20, 5)
        self.click((x + 170, y + self.size[1] - 40))
        self.assertEqual(self.program.wait(5), 0)

    def test_what_the_keyboard_reaches_comes_into_view(self):
        self.open()
        x, y = self.popover(self.size)
        xdotool("key", "Tab", "Tab", "Tab")
        time.sleep(0.2)
        self.click((x + 170, y + self.size[1] - 50))  # on the last row, 20 above the edge
        self.assertEqual(self.program.wait(5), 0)


if __name__ == "__main__":
    unittest.main()
