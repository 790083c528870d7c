# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""test_shots.py SHOTS: every window can be drawn, so that the README's pictures can always be made anew."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SHOTS = sys.argv.pop(1)
WINDOWS = ("feedback-failed", "feedback-loading", "log-empty", "log-rich", "onboarding", "picker", "popover-awake",
           "settings")


class Shots(unittest.TestCase):
    def test_every_window_is_drawn(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([SHOTS, folder, "1", "Sakura"], check=True, timeout=100)
            pictures = sorted(pathlib.Path(folder).glob("*.png"))
            names = [picture.stem for picture in pictures]
            for window in WINDOWS:
                self.assertTrue(any(name.startswith(window) for name in names), f"{window} among {names}")
            for picture in pictures:
                colours = subprocess.run(["identify", "-format", "%k", picture], check=True, capture_output=True)
                self.assertGreater(int(colours.stdout), 10, f"{picture.name} shows something")


if __name__ == "__main__":
    unittest.main()
