#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The popover under an X11 compositor: it has a shadow and smooth corners, and where there is none, clean ones."""
import subprocess
import unittest

from desktop import bed
from test_popover import ELSEWHERE, MARGIN, PANEL, SIZE, PopoverTest

SHADOW = 16
GROUND = (245, 241, 233)  # of the popover
CORNER = 12  # its radius


class CompositorTest(PopoverTest):
    def setUp(self):
        super().setUp()
        # Something bright for a shadow to fall on: the desktop may be black.
        window = subprocess.Popen(["xev", "-geometry", "1260x720+0+40"], stdout=subprocess.DEVNULL)
        self.addCleanup(window.wait)
        self.addCleanup(window.terminate)
        self.wait_for("a white window", lambda: self.colour(*ELSEWHERE) == (255, 255, 255))

    def open_with_size(self, size):
        self.start()
        self.behind = self.colour(*ELSEWHERE)
        self.click_item()
        self.wait_for("popover", lambda: self.popover(size), 3)
        self.wait_for("its first frame", lambda: self.colour(1280 - SIZE[0] // 2, PANEL + 50) == GROUND, 3)
        return self.popover(size)

    def colour(self, x, y):
        return tuple(subprocess.run(["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"],
                                    capture_output=True, check=True).stdout)

    def test_a_shadow_falls_on_what_is_behind_and_the_corners_are_smooth(self):
        window = self.open_with_size((SIZE[0] + 2 * SHADOW, SIZE[1] + 2 * SHADOW))
        x, y = window[0] + SHADOW, window[1] + SHADOW
        self.assert_in_corner(x, y)
        beside = [self.colour(x - away, y + SIZE[1] // 2)[0] for away in [1, 4, 8, SHADOW + 2]]
        self.assertEqual(beside, sorted(beside), "it fades")
        self.assertLess(beside[0], self.behind[0] - 20)
        self.assertEqual(beside[-1], self.behind[0])
        self.assertGreater(len(self.on_the_arc(x, y)), 3)

    def test_without_one_nothing_lies_around_it(self):
        bed("stop", "compositor")
        try:
            x, y = self.open_with_size(SIZE)
            self.assert_in_corner(x, y)
            self.assertEqual([self.colour(x - away, y + SIZE[1] // 2) for away in [1, 4, 8]], [self.behind] * 3)
            self.assertEqual(self.colour(x, y + SIZE[1] - 1), self.behind, "outside of the round corner")
        finally:
            bed("start", "compositor")

    def assert_in_corner(self, x, y):
        self.assertEqual(x, 1280 - MARGIN - SIZE[0])
        self.assertTrue(PANEL <= y <= PANEL + 10, y)

    def on_the_arc(self, x, y):
        """The colours of the lower left corner's square."""
        top = y + SIZE[1] - CORNER
        square = subprocess.run(["import", "-window", "root", "-crop", f"{CORNER}x{CORNER}+{x}+{top}", "-depth", "8",
                                 "gray:-"], capture_output=True, check=True).stdout
        return set(square)


if __name__ == "__main__":
    unittest.main()
