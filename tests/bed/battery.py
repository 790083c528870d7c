#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""A real upowerd over a mock battery at 57 % and a mains adapter that is out. Commands on standard input:
"bat PERCENT Charging|Discharging|Full", "ac 0|1", "nobat"."""
import os
import subprocess
import sys
import tempfile

import gi

gi.require_version("UMockdev", "1.0")
from gi.repository import UMockdev

testbed = UMockdev.Testbed.new()
mains = testbed.add_device("power_supply", "AC", None, ["type", "Mains", "online", "0"], [])
battery = testbed.add_device(
    "power_supply", "BAT0", None,
    ["type", "Battery", "present", "1", "status", "Discharging", "capacity", "57", "energy_full", "60000000",
     "energy_full_design", "80000000", "energy_now", "34200000", "voltage_now", "12000000", "power_now", "10000000"],
    ["POWER_SUPPLY_NAME", "BAT0", "POWER_SUPPLY_TYPE", "Battery"])
history = tempfile.mkdtemp(prefix="upower-", dir=os.environ["BED"])
daemon = subprocess.Popen(["/usr/libexec/upowerd"],
                          env={**os.environ, "UPOWER_HISTORY_DIR": history, "UMOCKDEV_DIR": testbed.get_root_dir()})
for line in sys.stdin:
    words = line.split()
    if words[:1] == ["bat"]:
        testbed.set_attribute(battery, "capacity", words[1])
        testbed.set_attribute(battery, "energy_now", str(int(float(words[1]) * 600000)))
        testbed.set_attribute(battery, "status", words[2])
        testbed.uevent(battery, "change")
    elif words[:1] == ["ac"]:
        testbed.set_attribute(mains, "online", words[1])
        testbed.uevent(mains, "change")
    elif words[:1] == ["nobat"]:
        testbed.uevent(battery, "remove")
        testbed.remove_device(battery)
daemon.terminate()
daemon.wait()
