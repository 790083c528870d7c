#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""What a screen reader finds in the popover, over the accessibility bus."""
import os
import subprocess
import unittest

import gi

from desktop import PROGRAM, DesktopTest, inhibitors

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

SILENT = {"filler", "application"}


def role_of(node):
    """Newer versions of the accessibility bus say "button" for "push button"."""
    return node.get_role_name().removeprefix("push ")


class ScreenReaderTest(DesktopTest):
    @classmethod
    def setUpClass(cls):
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"  # as a running screen reader does on a desktop
        cls.bus = subprocess.Popen(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    @classmethod
    def tearDownClass(cls):
        cls.bus.terminate()
        cls.bus.wait()

    def open(self, **settings):
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False, **settings)
        self.launch()
        subprocess.run([PROGRAM], timeout=5, check=True)  # the popover, without a tray
        self.wait_for("popover", lambda: any(role == "dialog" for _, role, _ in self.everything()))

    def everything(self):
        """(node, role, depth) of all that the application shows, from top to bottom."""
        desktop = Atspi.get_desktop(0)
        found = []

        def walk(node, depth):
            found.append((node, role_of(node), depth))
            for index in range(node.get_child_count()):
                walk(node.get_child_at_index(index), depth + 1)

        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application and application.get_name() == "orrinvale":
                walk(application, 0)
        return found

    def spoken(self):
        """What a reader says on its way: labels, and controls with their description and state."""
        lines = []
        for node, role, _ in self.everything():
            parent = node.get_parent()
            if role in SILENT or not node.get_name() or role_of(parent) == "button":
                continue
            state = ", checked" if node.get_state_set().contains(Atspi.StateType.CHECKED) else ""
            description = ", " + node.get_description() if node.get_description() else ""
            lines.append(f"{role}: {node.get_name()}{description}{state}")
        return lines

    def node(self, name):
        return next(node for node, *_ in self.everything() if node.get_name() == name)

    def test_the_popover_reads_from_top_to_bottom_with_its_state(self):
        self.open(wakeMode="Always Awake")
        self.assertEqual(self.spoken(), [
            "dialog: orrinvale",
            "label: orrinvale",
            "label: Your Mac is awake. 🌿",
            "label: Orrin is watching over your Mac.",
            "label: Your Mac stays awake — without interruptions.",
            "panel: Mode",
            "radio button: Smart",
            "radio button: Always Awake, checked",
            "radio button: Off",
            "label: ACTIVE REASON",
            "label: No active reason",
            "button: Activity Log, See your orrinvale activities",
            "button: Settings, Customize & behavior",
            "button: Quit, Pause orrinvale",
        ])

    def focused(self):
        """The innermost of what has the focus."""
        having = [node for node, *_ in self.everything() if node.get_state_set().contains(Atspi.StateType.FOCUSED)]
        return having[-1].get_name() if having else None

    def test_the_focus_is_on_the_mode_and_goes_down_the_rows(self):
        self.open(wakeMode="Off")
        self.wait_for("focus", lambda: self.focused() == "Off", 3)
        for name in ["Activity Log", "Settings", "Quit"]:
            subprocess.run(["xdotool", "key", "Tab"], check=True)
            self.wait_for("focus", lambda: self.focused() == name, 3)

    def test_it_chooses_a_mode_and_hears_of_it(self):
        self.open()
        always = self.node("Always Awake")
        self.assertTrue(Atspi.Action.do_action(always, 0))
        self.wait_for("inhibitor", lambda: inhibitors() == [("idle", "Manual mode")], 2)
        self.wait_for("state", lambda: "radio button: Always Awake, checked" in self.spoken(), 2)
        self.wait_for("title", lambda: "label: Your Mac is awake. 🌿" in self.spoken(), 2)

    def test_it_quits(self):
        self.open(wakeMode="Always Awake")
        Atspi.Action.do_action(self.node("Quit"), 0)
        self.assertEqual(self.program.wait(5), 0)
        self.assertEqual(inhibitors(), [])


if __name__ == "__main__":
    unittest.main()
