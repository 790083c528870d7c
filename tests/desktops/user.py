# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""What a user does with orrinvale on a desktop, in the order in which she does it. Each step returns what it saw; one
that sees something wrong raises Wrong."""
import json
import time

import pictures
from oracles import is_held

SETTLED = {"orrinvale.hasSeenOnboarding": True, "orrinvale.cpuSignalEnabled": False,
           "orrinvale.networkSignalEnabled": False, "orrinvale.appTheme": "System"}
UNIT = "app-orrinvale"
WELCOME, SETTINGS, LOG = "Welcome to orrinvale", "orrinvale Settings", "orrinvale — Activity Log"
SETTINGS_FILE = ".config/orrinvale/settings.json"
COOLDOWN = 30
DARK = {  # how a user asks for a dark desktop, and takes it back, where applications are told
    "GNOME": ["gsettings set org.gnome.desktop.interface color-scheme prefer-dark",
              "gsettings set org.gnome.desktop.interface color-scheme default"],
    "KDE": ["plasma-apply-colorscheme BreezeDark", "plasma-apply-colorscheme BreezeLight"],
}


class Wrong(Exception):
    pass


class User:
    def __init__(self, machine, session, folder):
        self.machine = machine
        self.session = session
        self.folder = folder
        self.icon = None
        self.opens_menu = session.desktop == "GNOME"

    # What the steps are made of

    def keep(self, name):
        picture = self.machine.screen()
        picture.save(self.folder / f"{name}.png")
        return picture

    def expect(self, what, condition, limit=15):
        try:
            return self.machine.wait_for(what, condition, limit)
        except TimeoutError as error:
            raise Wrong(str(error)) from None

    def start(self):
        self.machine.anna("systemd-run", "-q", "--user", "--collect", f"--unit={UNIT}",
                          "-E", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1", "/usr/bin/orrinvale")
        self.expect("socket", lambda: self.has("-S", "/run/user/1000/orrinvale.socket"))
        time.sleep(3)  # the socket may be one that a killed process has left

    def has(self, kind, path):
        return self.machine.anna("test", kind, path).returncode == 0

    def stop(self):
        self.machine.anna("systemctl", "--user", "stop", UNIT)

    def write_settings(self, settings):
        self.machine.anna("bash", "-c", f'mkdir -p .config/orrinvale Downloads; cat >{SETTINGS_FILE} <<<"$0"',
                          json.dumps(settings))

    def windows(self):
        return self.machine.anna("/usr/local/bin/accessible", "windows").stdout.splitlines()

    def press(self, name, title=None):
        if self.machine.anna("/usr/local/bin/accessible", "press", name, *([title] if title else [])).returncode:
            raise Wrong(f"there is no {name}")

    def popover(self, ground=pictures.LIGHT):
        return pictures.popover(self.machine.screen(), ground)

    def open_popover(self, button=1, name=None):
        """By the icon, with what GNOME's tray puts in between."""
        before = self.machine.screen()
        self.machine.click(self.icon, button)
        if self.opens_menu and button != "double":
            time.sleep(1.2)  # it waits whether a double click comes
            if name:
                self.keep(f"{name}-menu")
            if pictures.changed(before, self.machine.screen())[1] < 100:
                raise Wrong("no menu")
            self.machine.click((self.icon[0] + 10, self.icon[1] + 48))
        box = self.expect("popover", self.popover)
        if name:
            self.keep(name)
        return box

    def expect_no_popover(self, why):
        self.expect(f"end of the popover after {why}", lambda: not self.popover())
        time.sleep(0.5)
        if self.popover():
            raise Wrong(f"it opens again after {why}")

    def escape(self):
        self.machine.key("Escape")
        self.expect_no_popover("Escape")

    # The steps

    def onboarding(self):
        self.start()
        self.expect("onboarding", lambda: WELCOME in self.windows(), 15)
        time.sleep(1)
        self.keep("onboarding")
        self.machine.key("alt+F4")
        time.sleep(1)
        if WELCOME not in self.windows():
            raise Wrong("Alt+F4 closes it")
        self.press("Get Started")
        self.expect("its end", lambda: WELCOME not in self.windows())
        self.stop()
        return "stays until its button"

    def tray_icon(self):
        self.stop()
        self.write_settings(SETTLED)
        self.start()
        before = self.keep("idle")
        self.download(1)
        self.icon = self.expect("icon", lambda: pictures.awake_icon(self.machine.screen()), 15)
        self.keep("awake")
        if pictures.awake_icon(before):
            raise Wrong("it was awake before")
        spot = (self.icon[0] - 12, self.icon[1] - 12, self.icon[0] + 12, self.icon[1] + 12)
        colours = len(before.crop(spot).getcolors(4096))
        if colours < 3:
            raise Wrong("no idle icon")
        return "at {}, {}".format(*self.icon)

    def left_click(self):
        box = self.open_popover(name="popover")
        self.check_place(box)
        self.machine.click(self.icon)
        if self.opens_menu:
            self.machine.key("Escape")
        self.expect_no_popover("a second click")
        return "{}, {} – {}, {}".format(*box)

    def check_place(self, box):
        width, height = self.machine.screen().size
        if box[2] > width or box[3] > height or box[0] < 0 or box[1] < 0:
            raise Wrong(f"it is not wholly on the screen: {box}")
        is_low = self.icon[1] > height // 2
        if (is_low and box[3] > self.icon[1] - 8) or (not is_low and box[1] < self.icon[1] + 8):
            raise Wrong(f"it lies over the panel: {box}")
        gap = self.icon[1] - box[3] if is_low else box[1] - self.icon[1]
        if gap > 60 or self.icon[0] - box[2] > 120 or box[0] > self.icon[0] + 120:
            raise Wrong(f"it is far from the icon: {box}")

    def right_click(self):
        if self.session.desktop == "XFCE":
            self.machine.click(self.icon, 3)
            time.sleep(1)
            self.keep("right-click")
            self.machine.key("Escape")
            return "the panel's own menu"
        self.open_popover(3, "right-click")
        self.escape()
        return "opens"

    def double_click(self):
        self.machine.move(self.icon)
        self.machine.pointer("click", "--repeat", 2, "--delay", 90, 1)
        time.sleep(2)
        self.keep("double-click")
        is_open = self.popover()
        if self.opens_menu and not is_open:
            raise Wrong("it does not open")
        if is_open:
            self.escape()
        self.machine.key("Escape")
        return "opens" if is_open else "opens and closes"

    def click_elsewhere(self):
        height = self.machine.screen().size[1]
        panel = (420, 8 if self.icon[1] < height // 2 else height - 6)
        for what, place in [("desktop", (300, 560)), ("panel", panel)]:
            self.open_popover()
            self.machine.click(place)
            self.expect_no_popover(f"a click on the {what}")
            self.machine.key("Escape")
            time.sleep(0.5)
        return "closes"

    def other_window(self):
        self.press_row("Settings")
        self.expect("settings", lambda: SETTINGS in self.windows())
        time.sleep(1)
        self.keep("settings")
        self.open_popover()
        self.machine.click((640, 400))
        self.expect_no_popover("a click on another window")
        self.machine.key("alt+F4")
        self.expect("end of settings", lambda: SETTINGS not in self.windows())
        return "closes"

    def press_row(self, name):
        self.open_popover()
        self.press(name)
        self.expect_no_popover(f"its row {name}")

    def activity_log(self):
        self.press_row("Activity Log")
        self.expect("log", lambda: LOG in self.windows())
        time.sleep(1)
        self.keep("log")
        self.machine.key("alt+F4")
        self.expect("end of the log", lambda: LOG not in self.windows())
        return "opens and closes"

    def escape_key(self):
        self.open_popover()
        self.escape()
        return "closes"

    def second_start(self):
        self.machine.anna("/usr/bin/orrinvale")
        box = self.expect("popover", self.popover)
        self.keep("second-start")
        self.check_place(box)
        self.escape()
        return "{}, {} – {}, {}".format(*box)

    def dark_and_back(self):
        if self.session.desktop not in DARK:
            return "nobody tells"
        there, back = DARK[self.session.desktop]
        self.machine.anna("bash", "-c", there)
        time.sleep(2)
        try:
            self.machine.click(self.icon)
            if self.opens_menu:
                time.sleep(1.2)
                self.machine.click((self.icon[0] + 10, self.icon[1] + 48))
            self.expect("dark popover", lambda: self.popover(pictures.DARK))
            self.keep("dark")
        finally:
            self.machine.anna("bash", "-c", back)
        self.expect("light popover again", self.popover)
        self.escape()
        return "follows"

    def download(self, seconds):
        self.machine.anna("bash", "-c", f"for k in $(seq {2 * seconds}); do echo x >>Downloads/Movie.mkv.part; "
                                        "sleep 0.5; done")

    def held(self):
        return is_held(self.machine, self.session.inhibitor)

    def expect_held(self, expected, limit):
        if self.session.inhibitor != "none":
            self.expect("lock" if expected else "release", lambda: self.held() == expected, limit)

    def download_held_and_freed(self):
        self.machine.anna("rm", "-f", "Downloads/Movie.mkv.part")
        self.expect_held(False, COOLDOWN + 15)
        self.download(12)
        self.expect_held(True, 8)
        self.machine.anna("mv", "Downloads/Movie.mkv.part", "Downloads/Movie.mkv")
        end = time.monotonic()
        time.sleep(15)
        self.expect_held(True, 1)
        self.expect_held(False, COOLDOWN + 15)
        return f"freed after {time.monotonic() - end:.0f} s" if self.session.inhibitor != "none" else "nothing to hold"

    def killed(self):
        self.download(8)
        self.expect_held(True, 8)
        self.machine.anna("systemctl", "--user", "kill", "--signal=KILL", UNIT)
        self.expect_held(False, 5)
        self.machine.anna("rm", "-f", "Downloads/Movie.mkv.part")
        return "freed"

    def login(self):
        self.write_settings(SETTLED)
        self.start()
        self.machine.anna("/usr/bin/orrinvale")
        self.expect("popover", self.popover)
        self.press("Settings")
        self.expect("settings", lambda: SETTINGS in self.windows())
        self.press("Start at Login", SETTINGS)
        self.expect("login item", lambda: self.has("-e", ".config/autostart/orrinvale.desktop"))
        self.stop()
        self.machine.log_out()
        self.machine.begin(self.session)
        self.expect("application", lambda: self.machine.anna("pgrep", "-x", "orrinvale").returncode == 0, 40)
        time.sleep(3)
        self.keep("login")
        return "runs"


STEPS = [
    ("onboarding", User.onboarding),
    ("tray icon", User.tray_icon),
    ("left click", User.left_click),
    ("right click", User.right_click),
    ("double click", User.double_click),
    ("Escape", User.escape_key),
    ("click on the desktop, the panel", User.click_elsewhere),
    ("click on another window", User.other_window),
    ("log", User.activity_log),
    ("second start", User.second_start),
    ("dark and back", User.dark_and_back),
    ("download held, freed", User.download_held_and_freed),
    ("kill -9", User.killed),
    ("Start at Login", User.login),
]
