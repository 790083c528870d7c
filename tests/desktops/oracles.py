# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Whether a desktop's own service says that something holds off its sleep."""

ASKED = {
    "gnome": ["org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager", "IsInhibited", "u",
              "4"],
    "plasma": ["org.kde.Solid.PowerManagement.PolicyAgent", "/org/kde/Solid/PowerManagement/PolicyAgent",
               "org.kde.Solid.PowerManagement.PolicyAgent", "HasInhibition", "u", "1"],
    "xfce": ["org.freedesktop.PowerManagement", "/org/freedesktop/PowerManagement/Inhibit",
             "org.freedesktop.PowerManagement.Inhibit", "HasInhibit"],
}


def is_held(machine, service):
    """None where the desktop has no such service."""
    if service == "none":
        return None
    answer = machine.anna("busctl", "--user", "--auto-start=no", "call", *ASKED[service])
    if answer.stdout.strip() not in ("b true", "b false"):
        raise RuntimeError(f"{ASKED[service][0]}: {answer.stderr.strip()}")
    return answer.stdout.strip() == "b true"
