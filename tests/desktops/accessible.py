#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""accessible.py windows | press NAME [TITLE], in the user's session: what a screen reader finds of orrinvale. The first
prints the titles of its windows that are shown; the second presses the control with that name, in the window with that
title where one is given."""
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402


def nodes(node):
    yield node
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child:
            yield from nodes(child)


def windows():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(index)
        if application and application.get_name() == "orrinvale":
            for place in range(application.get_child_count()):
                window = application.get_child_at_index(place)
                if window.get_state_set().contains(Atspi.StateType.SHOWING):
                    yield window


def press(name, title=None):
    for window in windows():
        if title in (None, window.get_name()):
            for node in nodes(window):
                action = node.get_action_iface()
                if node.get_name() == name and action:
                    action.do_action(0)
                    return 0
    return 1


if sys.argv[1] == "windows":
    print("\n".join(sorted(window.get_name() for window in windows())))
else:
    sys.exit(press(*sys.argv[2:]))
