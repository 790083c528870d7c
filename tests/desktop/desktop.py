# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""What the tests of the built application share: the application inside a bed, and the waits for what it does."""
import json
import os
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

PROGRAM = os.environ["ORRINVALE"]
# Files are closed to it like to any user, whoever runs the tests.
ORDINARY = ["setpriv", "--bounding-set=-dac_override,-dac_read_search", PROGRAM]


def bed(*arguments):
    return subprocess.run([os.environ["BED_TOOL"], *arguments], check=True, capture_output=True, text=True).stdout


def inhibitors():
    """Pairs (what, why) of our inhibitors that logind holds. The question also makes logind look at its idle timer."""
    reply = subprocess.run(["busctl", "--system", "--json=short", "call", "org.freedesktop.login1",
                            "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "ListInhibitors"],
                           capture_output=True, text=True)
    held = json.loads(reply.stdout)["data"][0] if reply.returncode == 0 else []
    return [(what, why) for what, who, why, *_ in held if who == "orrinvale"]


def visible_windows(title):
    """Ids of those whose title matches. A search fails when any window at all goes while it looks around."""
    for _ in range(10):
        search = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], capture_output=True, text=True)
        if not search.stderr:
            break
    return search.stdout.split()


def suspends():
    inhibitors()
    return int(bed("suspends"))


class DesktopTest(unittest.TestCase):
    """A fresh home in the bed for each test, and the application in it."""

    def setUp(self):
        home = Path(tempfile.mkdtemp(prefix="h", dir=os.environ["BED"]))  # short: a socket's path must be
        for name, part in [("HOME", ""), ("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data"),
                           ("XDG_RUNTIME_DIR", "runtime")]:
            (home / part).mkdir(parents=True, exist_ok=True)
            os.environ[name] = str(home / part)
        (home / "runtime").chmod(0o700)
        self.downloads = home / "Downloads"
        self.downloads.mkdir()
        self.support = home / "data/orrinvale"
        self.settings = home / "config/orrinvale/settings.json"
        self.program = None
        self.launched = []
        self.choose(cpuSignalEnabled=True, networkSignalEnabled=True)  # as at a second start

    def tearDown(self):
        for program in self.launched:
            if program.poll() is None:
                program.kill()
                program.wait()
        self.wait_until_free()

    def wait_until_free(self):
        while inhibitors():
            time.sleep(0.02)

    def choose(self, **settings):
        """Writes the settings; load of the machine itself stays out of it unless a test asks for it."""
        settings = {"cpuSignalEnabled": False, "networkSignalEnabled": False, "hasSeenOnboarding": True, **settings}
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        self.settings.write_text(json.dumps({"orrinvale." + key: value for key, value in settings.items()}))

    def launch(self, *command):
        with open(os.environ["HOME"] + "/output", "w") as log:
            self.program = subprocess.Popen(command or [PROGRAM], stdout=log, stderr=subprocess.STDOUT)
        self.launched.append(self.program)
        self.wait_for("the application", lambda: (Path(os.environ["XDG_RUNTIME_DIR"]) / "orrinvale.socket").exists())

    def output(self):
        return Path(os.environ["HOME"], "output").read_text()

    def wait_for(self, what, condition, limit=10):
        end = time.monotonic() + limit
        while time.monotonic() < end:
            if condition():
                return time.monotonic()
            if self.program and self.program.poll() is not None:
                self.fail("the application ended: " + self.output())
            time.sleep(0.02)
        self.fail(f"no {what} within {limit} s; {inhibitors()}; {self.messages()}; {self.output()}")

    def messages(self):
        """The log's messages, newest first; none while the file is missing or is no log."""
        try:
            return [entry["message"] for entry in json.loads((self.support / "activity_log.json").read_text())]
        except (OSError, ValueError, TypeError, KeyError, RecursionError):
            return []

    def download(self, name="film.mkv.part", text="x"):
        path = os.path.join(os.fsencode(self.downloads), name if isinstance(name, bytes) else name.encode())
        with open(path, "a") as file:
            file.write(text)
        return path

    def stays_up(self, seconds=1.0):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.assertIsNone(self.program.poll(), self.output())
            time.sleep(0.05)
