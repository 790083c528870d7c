#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The battery rules, over a real UPower whose battery can be drained. The battery is looked at every 15 seconds."""
import unittest

from desktop import DesktopTest, bed, inhibitors


class BatteryTest(DesktopTest):
    def test_a_low_battery_pauses_and_external_power_or_no_battery_does_not(self):
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("inhibitor", inhibitors)
        bed("battery", "bat 20 Discharging")
        self.wait_for("pause", lambda: not inhibitors(), 20)
        self.wait_for("pause in the log",
                      lambda: self.messages()[0] == "Paused — battery at 20% (below 20% safety threshold)")
        bed("battery", "ac 1")
        bed("battery", "bat 20 Charging")
        self.wait_for("inhibitor", inhibitors, 20)
        bed("battery", "nobat")
        self.stays_up(17)
        self.assertEqual(len(inhibitors()), 1)


if __name__ == "__main__":
    unittest.main()
