#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Inside a bed: starts the application, lets one download come and end, and prints what holds the machine awake."""
import json
import os
import subprocess
import sys
import time
from pathlib import Path

program, screenshot = sys.argv[1:]
downloads = Path(os.environ["HOME"]) / "Downloads"
downloads.mkdir()
# What else this machine is busy with shall not keep it awake in between, and no welcome stand in the picture.
settings = Path(os.environ["XDG_CONFIG_HOME"]) / "orrinvale/settings.json"
settings.parent.mkdir(parents=True)
settings.write_text(json.dumps({"orrinvale.cpuSignalEnabled": False, "orrinvale.networkSignalEnabled": False,
                                "orrinvale.hasSeenOnboarding": True}))
log = Path(os.environ["XDG_DATA_HOME"]) / "orrinvale/activity_log.json"
told = 0


def look(when):
    """Prints the inhibitors, and the log's entries that are new; says whether the application holds an inhibitor."""
    global told
    held = subprocess.run(["systemd-inhibit", "--list", "--no-pager"], capture_output=True, text=True).stdout.strip()
    print(f"\n--- {when}\n{held}")
    entries = json.loads(log.read_text())[::-1] if log.exists() else []
    for entry in entries[told:]:
        print(f"log: {entry['date']} {entry['category']}: {entry['message']}")
    told = len(entries)
    return any(line.startswith("orrinvale ") for line in held.splitlines())


application = subprocess.Popen([program])
time.sleep(2)
before = look("before the download")
partial = downloads / "Movie.mkv.part"
for _ in range(6):
    with open(partial, "a") as file:
        file.write("x" * 1000)
    time.sleep(0.5)
during = look("during the download")
subprocess.run(["import", "-window", "root", screenshot], check=True)
partial.rename(downloads / "Movie.mkv")
print("\nThe download is complete; the cooldown takes 30 seconds …", flush=True)
time.sleep(32)
after = look("after the cooldown")
application.terminate()
application.wait()
print(f"\nThe screenshot is {screenshot}")
if (before, during, after) != (False, True, False):
    sys.exit("The download did not hold the machine awake from its beginning to its end")
