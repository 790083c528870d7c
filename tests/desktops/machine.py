# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""A booted Debian in namespaces of its own, with a user called anna, a virtual screen, a mouse and a keyboard."""
import io
import os
import re
import shlex
import subprocess
import time
from pathlib import Path

from PIL import Image

HERE = Path(__file__).resolve().parent
DISPLAY = ":90"
# What a login gives to the programs that it starts.
SESSION_VARIABLES = re.compile("^(DISPLAY|WAYLAND_DISPLAY|XAUTHORITY|XDG_|QT_|GTK_|DESKTOP_SESSION|KDE_|LANG|GNOME)")
# Not only for the display that all of them see: the nested compositors are shown on it too.
SCREEN_SERVICE = f"""[Service]
User=anna
ExecStart=/usr/bin/Xvfb {DISPLAY} -screen 0 1280x800x24 -ac -nolisten tcp -noreset
"""


def control_group(name):
    """The path of one for the machine, in the newer hierarchy, wherever that is mounted."""
    mounts = [line.split() for line in Path("/proc/self/mounts").read_text().splitlines()]
    top = next(Path(mount[1]) for mount in mounts if mount[2] == "cgroup2")
    group = top / f"orrinvale-desktop-{name}"
    group.mkdir(exist_ok=True)
    return group


class Machine:
    def __init__(self, name, overlay):
        self.name = name
        self.overlay = overlay
        self.variables = {}

    def __enter__(self):
        root = self.overlay.__enter__()
        group = control_group(self.name)
        command = ["unshare", "--mount", "--pid", "--fork", "--kill-child", "--uts", "--ipc", "--net", "--cgroup",
                   "--", HERE / "boot", root]
        self.outer = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                      stderr=open(self.overlay.folder / "console", "w"), start_new_session=True,
                                      preexec_fn=lambda: (group / "cgroup.procs").write_text(str(os.getpid())))
        self.wait_for("its process 1", self.has_booted, 20)
        self.wait_for("the system bus", lambda: self.run("busctl", "--system", "status").returncode == 0, 60)
        return self

    def __exit__(self, *_):
        self.outer.kill()
        self.outer.wait()
        self.overlay.__exit__()

    def has_booted(self):
        children = Path(f"/proc/{self.outer.pid}/task/{self.outer.pid}/children").read_text().split()
        self.first = children[0] if children else None
        return self.first and Path(f"/proc/{self.first}/comm").read_text().strip() == "systemd"

    @staticmethod
    def wait_for(what, condition, limit):
        end = time.monotonic() + limit
        while not (result := condition()):
            if time.monotonic() > end:
                raise TimeoutError(f"no {what} within {limit} s")
            time.sleep(0.1)
        return result

    def run(self, *command, variables=None, text=True, **options):
        """As root."""
        enter = ["nsenter", "-t", self.first, *"-m -p -u -i -n -C -r -w --".split(), "env", "-i",
                 "PATH=/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL=C.UTF-8",
                 *[f"{key}={value}" for key, value in (variables or {"HOME": "/root"}).items()]]
        return subprocess.run(enter + list(map(str, command)), capture_output=True, text=text, timeout=120,
                              stdin=subprocess.DEVNULL, **options)

    def anna(self, *command, **options):
        """As the user, with what her session's programs know."""
        variables = {"HOME": "/home/anna", "USER": "anna", "LOGNAME": "anna", "XDG_RUNTIME_DIR": "/run/user/1000",
                     "DBUS_SESSION_BUS_ADDRESS": "unix:path=/run/user/1000/bus", **self.variables}
        as_her = ["setpriv", "--reuid=anna", "--regid=anna", "--init-groups", "--", "env", "--chdir=/home/anna"]
        return self.run(*as_her, *command, variables=variables, **options)

    def shell(self, text):
        return self.anna("bash", "-c", text).stdout.strip()

    def read_variables(self):
        lines = self.anna("systemctl", "--user", "show-environment").stdout.splitlines()
        pairs = [line.split("=", 1) for line in lines if SESSION_VARIABLES.match(line)]
        self.variables = {key: shlex.split(value)[0] if value.startswith("$'") else value for key, value in pairs}

    def log_in(self, kind, desktop, command):
        """Begins a session the way a display manager does. `kind` is "x11" or "wayland"."""
        units = Path("/proc", str(self.first), "root", "etc/systemd/system")
        (units / "screen.service").write_text(SCREEN_SERVICE)
        display = f"DISPLAY={DISPLAY}" if kind == "x11" else ""
        (units / "desktop.service").write_text(f"""[Unit]
Requires=screen.service
After=screen.service systemd-logind.service dbus.service
[Service]
User=anna
PAMName=login
WorkingDirectory=/home/anna
Environment=XDG_SESSION_TYPE={kind} XDG_SESSION_CLASS=user XDG_CURRENT_DESKTOP={desktop}
Environment=XDG_SESSION_DESKTOP={desktop} DESKTOP_SESSION={desktop} {display} LIBGL_ALWAYS_SOFTWARE=1 LANG=C.UTF-8
Environment=XDG_RUNTIME_DIR=/run/user/1000 DBUS_SESSION_BUS_ADDRESS=unix:path=/run/user/1000/bus
ExecStartPre=/bin/sleep 1
ExecStart=/usr/local/bin/desktop-session
TimeoutStopSec=10
""")
        script = units / "../../../usr/local/bin/desktop-session"
        script.write_text(f"#!/bin/bash\n{command}\n")
        script.chmod(0o755)
        self.run("systemctl", "daemon-reload")
        self.run("systemctl", "start", "desktop")

    def begin(self, session):
        """Logs in and waits until the desktop stands still."""
        self.log_in(session.kind, session.desktop, session.command)
        self.wait_for("session", self.has_session, 60)
        self.wait_for("desktop that stands still", self.stands_still, 90)
        if session.desktop == "GNOME":  # which begins with an overview of nothing
            self.key("Escape")
            self.wait_for("desktop that stands still", self.stands_still, 90)
        self.read_variables()

    def has_session(self):
        return self.anna("systemctl", "--user", "show-environment").returncode == 0

    def stands_still(self):
        before = self.screen()
        time.sleep(4)
        after = self.screen()
        return before.getcolors(1) is None and before.tobytes() == after.tobytes()

    def log_out(self):
        self.run("systemctl", "stop", "desktop")
        self.run("systemctl", "stop", "user@1000")
        self.run("systemctl", "stop", "screen")
        self.variables = {}

    # The screen, the mouse and the keyboard

    def screen(self):
        picture = self.run("import", "-window", "root", "png:-", variables={"DISPLAY": DISPLAY}, text=False).stdout
        return Image.open(io.BytesIO(picture)).convert("RGB")

    def pointer(self, *arguments):
        self.run("xdotool", *arguments, variables={"DISPLAY": DISPLAY})

    def move(self, place):
        self.pointer("mousemove", *place)
        time.sleep(0.4)  # some trays take a click only where they have seen the pointer come

    def click(self, place, button=1):
        self.move((place[0] - 2, place[1]))
        self.move(place)
        self.pointer("click", button)

    def key(self, name):
        self.pointer("key", name)
