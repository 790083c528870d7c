#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The tray item and its popover under a real mouse on Wayland: in sway with a waybar, whose layer shell gives the popover
its place, and in weston, which has none."""
import contextlib
import json
import os
import signal
import subprocess
import time
import unittest
from pathlib import Path

from desktop import PROGRAM, DesktopTest, bed, inhibitors

ITEM = (1270, 14)
ELSEWHERE = (200, 600)
ON_THE_PANEL = (300, 14)
PANEL = 28  # its height
CORNER = (1280 - 8 - 340, PANEL + 8)  # where the popover is below it
BESIDE = (CORNER[0] - 40, 300)  # what is left of it, and of its shadow
GROUND = "#F5F1E9"  # of the popover
ALWAYS_AWAKE = (170, 386)  # in the popover
TITLE_OF_REASON = (170, 458)
BELOW_TITLE = (180, 478)  # between two texts
QUIT = (170, 652)


class OnWayland(DesktopTest):
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

    def start_again(self):
        subprocess.run([PROGRAM], check=True, timeout=10)

    def colour(self, x, y):
        """What is seen there, as #RRGGBB."""
        pixel = subprocess.run(["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"],
                               capture_output=True, check=True, env={**os.environ, "DISPLAY": self.display}).stdout
        return "#" + pixel.hex().upper()


class WaylandTest(OnWayland):
    def start(self):
        self.choose(hasSeenOnboarding=True, notificationsEnabled=False)
        self.launch()
        self.wait_for("tray item", self.item)
        self.registered = self.item()

    def item(self):
        """Service and path of our item in the tray; None while it knows of none."""
        reply = subprocess.run(["busctl", "--user", "--json=short", "get-property", "org.kde.StatusNotifierWatcher",
                                "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
                                "RegisteredStatusNotifierItems"], capture_output=True, text=True)
        items = json.loads(reply.stdout)["data"] if reply.returncode == 0 else []
        return items[0] if items else None

    def activate(self, x, y):
        service, _, path = self.registered.partition("/")  # a tray without a screen may know nothing of it
        subprocess.run(["busctl", "--user", "--timeout=1", "call", service, "/" + path, "org.kde.StatusNotifierItem",
                        "Activate", "ii", str(x), str(y)], check=True)

    def popover(self):
        return self.colour(CORNER[0] + 4, 300) == GROUND

    def sway(self, *arguments):
        return subprocess.run(["swaymsg", "-s", self.sway_socket(), *arguments], capture_output=True, text=True,
                              check=True).stdout

    def sway_socket(self):
        return next((Path(os.environ["BED"]) / "sway").glob("sway-ipc.*.sock"))

    def windows(self):
        """How many ordinary ones there are; one on a layer is none."""
        def count(node):
            return ("pid" in node) + sum(map(count, node["nodes"] + node["floating_nodes"]))
        return count(json.loads(self.sway("-t", "get_tree")))

    def click(self, place, button=1):
        self.input("mousemove", *place)
        time.sleep(0.1)  # the compositor hears of the move in a turn of its own
        self.input("click", button)

    def click_in_popover(self, place):
        self.click((CORNER[0] + place[0], CORNER[1] + place[1]))

    def open(self, button=1):
        self.wait_for("picture of the item in the tray", self.item_is_shown)
        time.sleep(0.5)  # else it may be the second one of a double click, which this tray tells as three
        self.click(ITEM, button)
        self.wait_for("popover", self.popover, 3)

    def item_is_shown(self):
        strip = subprocess.run(["import", "-window", "root", "-crop", "20x24+1258+2", "-depth", "8", "gray:-"],
                               capture_output=True, env={**os.environ, "DISPLAY": self.display}).stdout
        return strip and max(strip) - min(strip) > 24

    def assert_closes(self):
        self.wait_for("end of the popover", lambda: not self.popover(), 3)

    def assert_stays_closed(self):
        end = time.monotonic() + 0.6
        while time.monotonic() < end:
            self.assertFalse(self.popover())
            time.sleep(0.05)

    def test_a_click_opens_and_the_second_one_closes_and_does_not_open_again(self):
        self.start()
        for button in [1, 3]:
            self.open(button)
            self.click(ITEM, button)
            self.assert_closes()
            self.assert_stays_closed()

    def test_it_stands_in_the_corner_by_the_panel_and_is_no_ordinary_window(self):
        self.start()
        ground = self.colour(*BESIDE)
        self.open()
        self.assertEqual(self.windows(), 0)
        self.assertEqual(self.colour(*BESIDE), ground)
        right = CORNER[0] + 340
        self.assertEqual([self.colour(x, 300) == GROUND for x in [CORNER[0] - 1, CORNER[0] + 1, right - 2, right]],
                         [False, True, True, False])
        # Newer Waybars tell where they were clicked, and it stands nearer to them.
        top = next(y for y in range(PANEL, 800) if self.colour(1100, y) == GROUND) - 1  # below its outline
        self.assertTrue(PANEL < top <= CORNER[1], top)
        bottom = top + 700
        self.assertEqual([self.colour(1100, y) == GROUND for y in [bottom - 2, bottom]], [True, False])

    def test_a_click_elsewhere_on_the_panel_too_and_escape_close_it(self):
        self.start()
        self.open()
        self.input("key", "Escape")
        self.assert_closes()
        for place in [ELSEWHERE, ON_THE_PANEL, BESIDE]:
            with self.subTest(place=place):
                self.open()
                self.click(place)
                self.assert_closes()
                self.assert_stays_closed()

    def test_a_second_start_opens_it_and_on_a_low_screen_it_is_as_high_as_there_is_room(self):
        self.start()
        self.sway("output", "X11-1", "scale", "2")
        try:
            self.start_again()
            middle = 2 * (640 - 8 - 170)
            lowest = 800 - 2 * 8 - 1
            self.wait_for("popover", lambda: self.colour(middle, lowest - 4) == GROUND)
            self.assertNotEqual(self.colour(middle, lowest + 2), GROUND)
            self.input("key", "Escape")
            self.wait_for("its end", lambda: self.colour(middle, lowest - 4) != GROUND)
        finally:
            self.sway("output", "X11-1", "scale", "1")

    def test_a_compositor_that_hangs_holds_nothing_up(self):
        self.start()
        pid = int(self.sway_socket().name.split(".")[-2])
        os.kill(pid, signal.SIGSTOP)
        try:
            for _ in ["opens", "closes before it is to be seen"]:
                self.activate(0, 0)
        finally:
            os.kill(pid, signal.SIGCONT)
        self.assert_stays_closed()
        self.open()

    def test_it_stands_above_a_click_that_the_tray_tells_of(self):
        self.start()
        self.activate(300, 790)
        left, bottom = 300 - 170, 800 - 4
        self.wait_for("popover", lambda: self.colour(left + 4, 300) == GROUND, 3)
        self.assertEqual([self.colour(x, 300) == GROUND for x in [left - 1, left + 1, left + 338, left + 340]],
                         [False, True, True, False])
        self.assertEqual([self.colour(left + 170, y) == GROUND for y in [bottom - 701, bottom - 699, bottom - 2, bottom]],
                         [False, True, True, False])
        self.input("key", "Escape")
        self.wait_for("end of the popover", lambda: self.colour(left + 4, 300) != GROUND, 3)

    def test_it_is_shown_where_it_has_just_the_room_it_needs(self):
        self.start()
        self.sway("output", "X11-1", "resolution", f"1280x{28 + 16 + 700 + 16}")
        try:
            time.sleep(0.5)
            self.start_again()
            self.wait_for("popover", self.popover, 3)
            self.input("key", "Escape")
            self.assert_closes()
        finally:
            self.sway("output", "X11-1", "resolution", "1280x800")
            time.sleep(0.5)

    def test_it_has_its_place_at_a_scale_of_qt_s_own(self):
        os.environ["QT_SCALE_FACTOR"] = "1.5"
        try:
            self.start()
        finally:
            del os.environ["QT_SCALE_FACTOR"]
        self.start_again()
        left, top, right = 1280 - 12 - 510, 28 + 12, 1280 - 12
        self.wait_for("popover", lambda: self.colour(left + 6, 300) == GROUND, 3)
        self.assertEqual([self.colour(x, 300) == GROUND for x in [left - 2, left + 3, right - 4, right + 1]],
                         [False, True, True, False])
        self.assertEqual([self.colour(1000, y) == GROUND for y in [top - 2, top + 3, 800 - 12 - 4, 800 - 9]],
                         [False, True, True, False])

    def test_without_any_screen_it_lives_on(self):
        self.start()
        self.sway("output", "X11-1", "disable")
        try:
            time.sleep(0.5)
            self.activate(0, 0)
            self.stays_up(1)
            self.activate(0, 0)
        finally:
            self.sway("output", "X11-1", "enable")
        self.stays_up(1)
        self.assertFalse(self.popover())
        self.open()

    def test_the_tooltip_of_a_long_reason_is_within_it(self):
        self.start()
        (self.downloads / f"{'a long name ' * 8}.part").write_text("x")
        self.wait_for("inhibitor", inhibitors)
        self.open()
        below = CORNER[0] + BELOW_TITLE[0], CORNER[1] + BELOW_TITLE[1]
        self.input("mousemove", CORNER[0] + TITLE_OF_REASON[0], CORNER[1] + TITLE_OF_REASON[1])
        time.sleep(0.1)
        self.input("mousemove", CORNER[0] + TITLE_OF_REASON[0] + 5, CORNER[1] + TITLE_OF_REASON[1])
        ground = self.colour(*below)
        self.wait_for("tooltip", lambda: self.colour(*below) != ground, 3)
        self.assertEqual(self.windows(), 0)
        self.input("mousemove", *ELSEWHERE)
        self.wait_for("end of the tooltip", lambda: self.colour(*below) == ground, 3)

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


class WithoutLayerShellTest(OnWayland):
    def test_the_popover_is_in_the_corner_and_escape_and_a_click_elsewhere_close_it(self):
        self.choose(hasSeenOnboarding=True)
        with self.weston():
            self.launch()
            self.stays_up(1)
            for close in [("key", "Escape"), ("mousemove", *ELSEWHERE, "click", "1")]:
                self.start_again()
                self.wait_for("popover", self.popover)
                right = 1280 - 8
                self.assertEqual([self.colour(x, 300) == GROUND for x in [right - 341, right - 339, right - 2, right]],
                                 [False, True, True, False])
                self.input(*close)
                self.wait_for("end of the popover", lambda: not self.popover(), 3)
                self.assertIsNone(self.program.poll())

    @contextlib.contextmanager
    def weston(self):
        files = Path(os.environ["XDG_RUNTIME_DIR"])
        others = os.environ["WAYLAND_DISPLAY"]
        with open(files / "weston.log", "w") as log:
            weston = subprocess.Popen(["weston", "--backend=x11-backend.so", "--width=1280", "--height=800",
                                       "--use-pixman", "--socket=weston"], stdout=log, stderr=log,
                                      env={**os.environ, "DISPLAY": self.display})
        try:
            self.wait_for("weston", (files / "weston").exists, 10)
            os.environ["WAYLAND_DISPLAY"] = "weston"
            yield
        finally:
            os.environ["WAYLAND_DISPLAY"] = others
            weston.terminate()
            weston.wait()

    def popover(self):
        """It may stand anywhere; nothing else there has so much of its colour."""
        screen = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], capture_output=True, check=True,
                                env={**os.environ, "DISPLAY": self.display}).stdout
        return screen.count(bytes.fromhex(GROUND[1:])) > 340 * 50


if __name__ == "__main__":
    unittest.main()
