# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""hardening.py FILE...: what each built program or module lacks of what makes a fault in it hard to use."""
import re
import subprocess
import sys


def readelf(option, file):
    return subprocess.run(["readelf", "-W", option, file], check=True, capture_output=True, text=True,
                          env={"LC_ALL": "C.UTF-8"}).stdout


def lacks(file):
    head, segments, dynamic = (readelf(option, file) for option in ("-h", "-l", "-d"))
    faults = []
    if not re.search(r"Type: +DYN", head):
        faults.append("is not position independent")
    if not re.search(r"GNU_STACK .* RW +0x", segments):
        faults.append("has a stack that can be run")
    if "GNU_RELRO" not in segments:
        faults.append("has no read-only relocations")
    if not re.search(r"\(FLAGS(_1)?\).*\bNOW\b|\(BIND_NOW\)", dynamic):
        faults.append("binds late, so its relocations stay writable")
    return faults


if __name__ == "__main__":
    found = [f"{file}: {fault}" for file in sys.argv[1:] for fault in lacks(file)]
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found or len(sys.argv) < 2 else 0)
