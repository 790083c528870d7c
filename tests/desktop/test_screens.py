#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The popover where there are several screens: it opens on that of the panel, wherever that is, and outlives it."""
import subprocess
import time
import unittest

from desktop import bed
from test_popover import MARGIN, PANEL, SIZE, PopoverTest, xdotool

RIGHT = (1280, 0, 1024, 768)  # beside one of 1280x800
AT_THE_TOP, AT_THE_BOTTOM = "p=6;x=0;y=0", "p=8;x=0;y=0"


def choose(name, value):
    subprocess.run(["xfconf-query", "-c", "xfce4-panel", "-p", f"/panels/panel-1/{name}", "-n", "-t", "string", "-s",
                    value], check=True)


class ScreensTest(PopoverTest):
    def setUp(self):
        super().setUp()
        bed("screens", "1280x800,1024x768")
        choose("output-name", "VNC-1")

    def put_panel(self, position):
        choose("position", position)
        left, top, width, height = RIGHT
        self.panel = (left, top if position == AT_THE_TOP else top + height - PANEL, width)
        time.sleep(0.5)  # it goes there

    def test_it_opens_on_the_panel_s_screen_below_a_panel_at_the_top(self):
        self.put_panel(AT_THE_TOP)
        self.start()
        self.open()
        x, y = self.popover()
        self.assertEqual(x, RIGHT[0] + RIGHT[2] - MARGIN - SIZE[0])
        self.assertTrue(PANEL <= y <= PANEL + 10, y)

    def test_it_stands_above_a_panel_at_the_bottom_of_a_lower_screen(self):
        self.put_panel(AT_THE_BOTTOM)
        self.start()
        self.open()
        x, y = self.popover()
        self.assertEqual(x, RIGHT[0] + RIGHT[2] - MARGIN - SIZE[0])
        self.assertTrue(-10 <= RIGHT[3] - PANEL - (y + SIZE[1]) <= 10, y)

    def test_a_screen_that_goes_while_it_is_open_takes_nothing_with_it(self):
        self.put_panel(AT_THE_TOP)
        self.start()
        self.open()
        bed("screens", "1280x800")
        self.stays_up(1)
        xdotool("key", "Escape")
        self.assert_closes()
        bed("restart", "xfce-panel")  # newer ones stay hidden once their screen went
        self.panel = (0, 0, 1280)
        xdotool("mousemove", 200, 600)
        self.wait_for("tray item on the other screen", self.resting_item)
        self.open()
        self.assert_stands_by_the_item()


if __name__ == "__main__":
    unittest.main()
