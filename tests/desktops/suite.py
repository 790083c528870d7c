# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""A release of Debian as file systems: one base, and on top of it a layer of packages for each desktop."""
import hashlib
import shutil
import subprocess
from pathlib import Path

HERE = Path(__file__).resolve().parent
MIRROR = "http://deb.debian.org/debian"
SECURITY = "http://deb.debian.org/debian-security"

# What every machine has: a login with its services, a virtual screen, and what looks at it and clicks on it.
BASE = """systemd systemd-sysv dbus dbus-user-session dbus-x11 libpam-systemd polkitd upower xvfb xdotool imagemagick
x11-utils x11-xserver-utils python3-gi python3-dbus gir1.2-atspi-2.0 at-spi2-core fonts-noto-color-emoji fonts-noto-core
fonts-dejavu-core procps iproute2 libcap2-bin libgl1-mesa-dri libglib2.0-bin libnotify-bin xdg-user-dirs
adwaita-icon-theme hicolor-icon-theme libgtk-3-bin""".split()

APT_SETTINGS = """Binary::apt::APT::Keep-Downloaded-Packages "true";
APT::Keep-Downloaded-Packages "true";
Acquire::Languages "none";
"""

# They want a machine's hardware or network, or show a screen of their own.
UNWANTED = """systemd-udevd.service systemd-udevd-kernel.socket systemd-udevd-control.socket
systemd-udev-trigger.service
systemd-networkd.service systemd-resolved.service systemd-timesyncd.service systemd-remount-fs.service getty@.service
console-getty.service getty-static.service dev-hugepages.mount sys-kernel-debug.mount sys-kernel-tracing.mount
sys-kernel-config.mount sys-fs-fuse-connections.mount apt-daily.timer apt-daily-upgrade.timer sddm.service
lightdm.service gdm.service display-manager.service NetworkManager.service ModemManager.service wpa_supplicant.service
udisks2.service colord.service exim4.service systemd-suspend.service systemd-hibernate.service
tracker-miner-fs-3.service tracker-miner-fs-control-3.service""".split()


class Overlay:
    """Layers, the uppermost first, as one file system that keeps its changes in `folder`; mounted while in use."""

    def __init__(self, folder, *layers):
        self.folder = folder
        self.layers = layers
        self.root = folder / "root"

    def __enter__(self):
        for part in ("changes", "work", "root"):
            (self.folder / part).mkdir(parents=True, exist_ok=True)
        options = f"lowerdir={':'.join(map(str, self.layers))},upperdir={self.changes},workdir={self.folder / 'work'}"
        subprocess.run(["mount", "-t", "overlay", "overlay", "-o", options, self.root], check=True)
        return self.root

    def __exit__(self, *_):
        subprocess.run(["umount", "--lazy", self.root], check=True)

    @property
    def changes(self):
        return self.folder / "changes"

    def forget(self):
        shutil.rmtree(self.folder, ignore_errors=True)


class Suite:
    def __init__(self, folder, name):
        self.name = name
        self.base = folder / f"base-{name}"
        self.archives = folder / f"archives-{name}"
        self.folder = folder
        self.log = folder / f"{name}.log"

    def inside(self, root, *command):
        """Runs it in the file system at `root`, with this machine's network."""
        (self.archives / "partial").mkdir(parents=True, exist_ok=True)
        with open(self.log, "a") as log:
            status = subprocess.run([HERE / "inside", root, self.archives, *command], stdout=log, stderr=log).returncode
        if status:
            raise RuntimeError(f"{' '.join(map(str, command))} ended with {status}; see {self.log}")

    def install(self, root, packages):
        self.inside(root, "apt-get", "install", "-y", "-q", "--no-install-recommends", *packages)

    def make_base(self):
        ready = self.base / "ready"
        if ready.exists():
            return
        shutil.rmtree(self.base, ignore_errors=True)
        with open(self.log, "a") as log:
            subprocess.run(["debootstrap", "--variant=minbase", self.name, self.base, MIRROR], check=True, stdout=log)
        etc = self.base / "etc"
        (etc / "apt/sources.list").write_text("".join(
            f"deb {address} {self.name}{part} main\n"
            for address, part in [(MIRROR, ""), (MIRROR, "-updates"), (SECURITY, "-security")]))
        (etc / "apt/apt.conf.d/desktops").write_text(APT_SETTINGS)
        (etc / "dpkg/dpkg.cfg.d").mkdir(exist_ok=True)
        (etc / "dpkg/dpkg.cfg.d/desktops").write_text("force-unsafe-io\n")
        (etc / "hosts").write_text("127.0.0.1 localhost desk\n")
        shutil.copy("/etc/resolv.conf", etc)
        starts_nothing = self.base / "usr/sbin/policy-rc.d"
        starts_nothing.write_text("#!/bin/sh\nexit 101\n")
        starts_nothing.chmod(0o755)
        self.inside(self.base, "apt-get", "update", "-q")
        self.install(self.base, BASE)
        self.inside(self.base, "useradd", "--create-home", "--shell", "/bin/bash", "anna")
        ready.touch()

    def desktop(self, name, packages):
        """The layers of a desktop with these packages, made when there are none yet."""
        self.make_base()
        overlay = Overlay(self.folder / f"{self.name}-{name}", self.base)
        wanted = hashlib.sha256(" ".join(sorted(packages)).encode()).hexdigest()
        ready = overlay.folder / "ready"
        if not ready.exists() or ready.read_text() != wanted:
            overlay.forget()
            with overlay as root:
                self.install(root, packages)
                settle(root)
            ready.write_text(wanted)
        return overlay.changes, self.base


def settle(root):
    """What a machine without hardware leaves out, and who may do what in it."""
    for unit in UNWANTED:
        link = root / "etc/systemd/system" / unit
        link.parent.mkdir(parents=True, exist_ok=True)
        link.unlink(missing_ok=True)
        link.symlink_to("/dev/null")
        user = root / "etc/systemd/user" / unit
        if unit.startswith("tracker"):
            user.parent.mkdir(parents=True, exist_ok=True)
            user.unlink(missing_ok=True)
            user.symlink_to("/dev/null")
    rules = root / "etc/polkit-1/rules.d"
    rules.mkdir(parents=True, exist_ok=True)
    (rules / "00-everything.rules").write_text("polkit.addRule(function() { return polkit.Result.YES; });\n")
