#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The tray item and its popover under a real mouse on Wayland, in sway with a waybar."""
import json
import os
import subprocess
import time
import unittest
from pathlib import Path

from desktop import DesktopTest, bed, inhibitors

ITEM = (1270, 14)
ELSEWHERE = (200, 600)
SHADOW = 16
ALWAYS_AWAKE = (170, 386)  # in the popover
QUIT = (170, 652)


class WaylandTest(DesktopTest):
    def setUp(self):
        super().setUp()
        # The X server is for the mouse; the application must not know of it.
        self.display = os.environ.pop("DISPLAY")
        os.environ["XDG_SESSION_TYPE"] = "wayland"
        self.input("mousemove", *ELSEWHERE)

    def tearDown(self):
        super().tearDown()
        os.environ["DISPLAY"] = self.display

    def input(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], check=True, env={**os.environ, "DISPLAY": self.display})

    def start(self):
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False)
        self.launch()
        self.wait_for("tray item", self.item)

    def item(self):
        """Service and path of our item in the tray; None while it knows of none."""
        reply = subprocess.run(["busctl", "--user", "--json=short", "get-property", "org.kde.StatusNotifierWatcher",
                                "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
                                "RegisteredStatusNotifierItems"], capture_output=True, text=True)
        items = json.loads(reply.stdout)["data"] if reply.returncode == 0 else []
        return items[0] if items else None

    def popover(self):
        """The upper left corner of what is seen of it, without its shadow; None while there is none."""
        socket = next((Path(os.environ["BED"]) / "sway").glob("sway-ipc.*.sock"))
        tree = subprocess.run(["swaymsg", "-s", socket, "-t", "get_tree"], capture_output=True, text=True, check=True)

        def find(node):
            if node.get("app_id") == "orrinvale":
                return node["rect"]["x"] + SHADOW, node["rect"]["y"] + SHADOW
            return next(filter(None, map(find, node["nodes"] + node["floating_nodes"])), None)

        return find(json.loads(tree.stdout))

    def click(self, place, button=1):
        self.input("mousemove", *place)
        time.sleep(0.1)  # the compositor hears of the move in a turn of its own
        self.input("click", button)

    def click_in_popover(self, place):
        x, y = self.popover()
        self.click((x + place[0], y + place[1]))

    def open(self, button=1):
        self.wait_for("picture of the item in the tray", self.item_is_shown)
        self.click(ITEM, button)
        self.wait_for("popover", self.popover, 3)
        time.sleep(0.3)  # its first frame, and where it floats

    def item_is_shown(self):
        strip = subprocess.run(["import", "-window", "root", "-crop", "20x24+1258+2", "-depth", "8", "gray:-"],
                               capture_output=True, env={**os.environ, "DISPLAY": self.display}).stdout
        return strip and max(strip) - min(strip) > 24

    def assert_closes(self):
        self.wait_for("end of the popover", lambda: not self.popover(), 3)

    def assert_stays_closed(self):
        end = time.monotonic() + 0.6
        while time.monotonic() < end:
            self.assertIsNone(self.popover())
            time.sleep(0.05)

    def test_a_click_opens_and_the_second_one_closes_and_does_not_open_again(self):
        self.start()
        for button in [1, 3]:
            self.open(button)
            self.click(ITEM, button)
            self.assert_closes()
            self.assert_stays_closed()

    def test_a_click_elsewhere_and_escape_close_it(self):
        self.start()
        self.open()
        self.input("key", "Escape")
        self.assert_closes()
        self.open()
        self.click(ELSEWHERE)
        self.assert_closes()

    def test_it_is_used_like_any_other(self):
        self.start()
        self.open()
        self.click_in_popover(ALWAYS_AWAKE)
        self.wait_for("inhibitor", lambda: inhibitors() == [("idle", "Manual mode")], 2)
        self.click_in_popover(QUIT)
        self.assertEqual(self.program.wait(5), 0)
        self.assertEqual(inhibitors(), [])

    def test_a_tray_that_starts_after_us_and_one_that_starts_again_show_the_item(self):
        bed("stop", "waybar")
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False)
        self.launch()
        self.stays_up(2)
        for _ in range(2):
            bed("start", "waybar")
            self.wait_for("tray item", self.item)
            self.open()
            self.input("key", "Escape")
            self.assert_closes()
            bed("stop", "waybar")
        bed("start", "waybar")


if __name__ == "__main__":
    unittest.main()
