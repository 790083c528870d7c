# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The desktops: what each is made of, and how a login to it goes."""
from dataclasses import dataclass, field

GNOME = """gnome-shell gnome-session gnome-settings-daemon gnome-shell-extension-appindicator gnome-terminal
gnome-backgrounds xdg-desktop-portal-gnome gsettings-desktop-schemas fonts-cantarell nautilus xwayland""".split()
PLASMA = """plasma-desktop plasma-workspace kwin-wayland kwin-x11 powerdevil breeze systemsettings konsole
xdg-desktop-portal-kde xwayland kscreen""".split()
XFCE = """xfce4-session xfce4-panel xfwm4 xfdesktop4 xfce4-settings xfce4-power-manager xfce4-notifyd xfce4-terminal
thunar xfconf greybird-gtk-theme elementary-xfce-icon-theme gtk2-engines-pixbuf xfce4-appfinder""".split()
MATE = """mate-session-manager mate-panel marco mate-settings-daemon mate-power-manager mate-notification-daemon caja
mate-desktop mate-control-center mate-themes mate-icon-theme mate-indicator-applet mate-applets mate-terminal""".split()
CINNAMON = """cinnamon-session cinnamon cinnamon-settings-daemon muffin nemo cinnamon-control-center
cinnamon-screensaver gnome-terminal gir1.2-xapp-1.0 xapps-common gnome-themes-extra""".split()
LXQT = """lxqt-session lxqt-panel lxqt-config lxqt-policykit lxqt-powermanagement lxqt-notificationd lxqt-runner
lxqt-themes lxqt-qtplugin pcmanfm-qt openbox breeze-icon-theme qterminal""".split()

# Inside of the virtual screen, but otherwise like after a login: the session's own units start it.
NESTED_SHELL = """[Service]
Environment=DISPLAY=:90 MUTTER_DEBUG_DUMMY_MODE_SPECS=1280x800 LIBGL_ALWAYS_SOFTWARE=1
ExecStart=
ExecStart=/usr/bin/gnome-shell --nested --wayland --unsafe-mode
"""
NESTED_KWIN = """[Service]
Environment=KWIN_COMPOSE=Q
ExecStart=
ExecStart=/usr/bin/kwin_wayland_wrapper --x11-display :90 --width 1280 --height 800 --xwayland
"""
# What GNOME asks of a new user, and what covers the screen after a while.
GNOME_SETTINGS = """gsettings set org.gnome.shell enabled-extensions "['ubuntu-appindicators@ubuntu.com']"
gsettings set org.gnome.shell welcome-dialog-last-shown-version 99
gsettings set org.gnome.desktop.session idle-delay 0
gsettings set org.gnome.desktop.screensaver lock-enabled false
"""
KDE_SETTINGS = {
    ".config/startkderc": "[General]\nsystemdBoot=true\n",
    ".config/ksplashrc": "[KSplash]\nEngine=none\nTheme=None\n",
    ".config/kscreenlockerrc": "[Daemon]\nAutolock=false\nLockOnResume=false\n",
    ".config/baloofilerc": "[Basic Settings]\nIndexing-Enabled=false\n",
}
# With file capabilities the kernel starts them only where the namespace may hold these.
WITHOUT_CAPABILITIES = """for file in kwin_wayland org_kde_powerdevil start_kdeinit; do
  find /usr/bin /usr/lib -name $file -exec setcap -r {} ";" 2>/dev/null || true
done"""
TELLS_SERVICES = ("dbus-update-activation-environment --systemd DISPLAY XDG_CURRENT_DESKTOP XDG_SESSION_TYPE "
                  "XDG_SESSION_DESKTOP DESKTOP_SESSION LANG LIBGL_ALWAYS_SOFTWARE; exec ")


@dataclass(frozen=True)
class Session:
    """`kind` is "x11" or "wayland"; `command` begins it; `prepare` is run as root before the machine boots."""
    suite: str
    packages: list
    kind: str
    desktop: str
    command: str
    inhibitor: str  # which service holds what keeps it awake, see oracles.py
    prepare: str = ""
    files: dict = field(default_factory=dict)  # in the user's home
    units: dict = field(default_factory=dict)  # of the user's manager
    settle: str = ""  # the user runs it before the session
    layer: str = ""  # whose packages they share

    def layer_name(self, name):
        return self.layer or name


def gnome(suite):
    return Session(suite, GNOME, "wayland", "GNOME",
                   f"{GNOME_SETTINGS}exec gnome-session --systemd --session=gnome --disable-acceleration-check"
                   if suite == "bookworm" else f"{GNOME_SETTINGS}exec gnome-session --session=gnome",
                   "gnome", units={"org.gnome.Shell@wayland.service.d/nested.conf": NESTED_SHELL})


def plasma(suite, kind):
    nested = {"plasma-kwin_wayland.service.d/nested.conf": NESTED_KWIN} if kind == "wayland" else {}
    return Session(suite, PLASMA, kind, "KDE", f"exec startplasma-{kind}", "plasma", WITHOUT_CAPABILITIES,
                   KDE_SETTINGS, nested, layer="plasma")


def x11(packages, desktop, command, inhibitor, **more):
    return Session("bookworm", packages, "x11", desktop, TELLS_SERVICES + command, inhibitor, **more)


SESSIONS = {
    "gnome": gnome("bookworm"),
    "plasma-wayland": plasma("bookworm", "wayland"),
    "plasma-x11": plasma("bookworm", "x11"),
    "xfce": x11(XFCE, "XFCE", "xfce4-session", "xfce"),
    "mate": x11(MATE, "MATE", "mate-session", "gnome"),
    "cinnamon": x11(CINNAMON, "X-Cinnamon", "cinnamon-session --session cinnamon", "gnome"),
    "lxqt": x11(LXQT, "LXQt", "startlxqt", "none"),
    "gnome-13": gnome("trixie"),
    "plasma-wayland-13": plasma("trixie", "wayland"),
}
