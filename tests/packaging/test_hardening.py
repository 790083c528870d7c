# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""test_hardening.py COMPILER FILE...: the built programs and modules lack nothing, and each lack would be noticed."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import hardening

COMPILER, *BUILT = sys.argv[1:]
ALL = ["-fPIE", "-pie", "-Wl,-z,relro", "-Wl,-z,now"]


class Hardening(unittest.TestCase):
    def test_what_was_built_lacks_nothing(self):
        self.assertGreater(len(BUILT), 2)
        for file in BUILT:
            self.assertEqual([], hardening.lacks(file), file)


class SeededLacks(unittest.TestCase):
    """A program that is built without one of them."""

    def lacks_with(self, *options):
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder, "program")
            subprocess.run([COMPILER, "-x", "c++", "-", *ALL, *options, "-o", program], input="int main() {}", text=True,
                           check=True)
            return hardening.lacks(program)

    def test_none(self):
        self.assertEqual([], self.lacks_with())

    def test_each(self):
        for options, lack in ((["-fno-pie", "-no-pie"], "is not position independent"),
                              (["-Wl,-z,execstack"], "has a stack that can be run"),
                              (["-Wl,-z,norelro"], "has no read-only relocations"),
                              (["-Wl,-z,lazy"], "binds late, so its relocations stay writable")):
            with self.subTest(lack):
                self.assertEqual([lack], self.lacks_with(*options))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
