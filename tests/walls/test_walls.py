# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""The walls stand in this repository, and each check notices the fault that it is there for."""
import pathlib
import subprocess
import tempfile
import unittest

import walls

HOUSE = pathlib.Path(__file__).resolve().parents[2]


class Walls(unittest.TestCase):
    def test_hold(self):
        house = walls.House(HOUSE)
        self.assertGreater(len(house.files), 400)
        faults = [fault for check in walls.CHECKS for fault in check(house)]
        self.assertEqual([], faults)

    def test_every_source_is_formatted(self):
        sources = [name for name in walls.tracked_files(HOUSE) if name.endswith((".h", ".cpp"))]
        told = subprocess.run(["clang-format", "--dry-run", *sources], cwd=HOUSE, capture_output=True, text=True)
        self.assertEqual("", told.stderr, "./dev format mends that")
        self.assertEqual(0, told.returncode)


class SeededFaults(unittest.TestCase):
    """A small house of which each test breaks one wall."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.write("tests/walls/rooms", "no Qt base:\n kit: base\nno Qt logic: base\n interface: base kit logic\n"
                                        " main: logic\n  interface # and more\n tests: base\n")
        self.write("orrinvale/CMakeLists.txt", "add_library(orrinvale_logic STATIC\n  Engine.cpp\n)\n")
        self.write("base/Clock.h", "#pragma once\n")
        self.write("kit/Button.h", "#pragma once\n#include <QWidget>\n")
        self.write("kit/Button.cpp", '#include "kit/Button.h"\n\n#include "base/Clock.h"\n')
        self.write("orrinvale/Engine.h", '#include "base/Clock.h"\n')
        self.write("orrinvale/Engine.cpp", '#include "orrinvale/Engine.h"\n')
        self.write("orrinvale/Window.cpp", '#include "kit/Button.h"\n')
        self.write("orrinvale/main.cpp", '#include "orrinvale/Engine.h"\n')

    def write(self, name, text):
        path = pathlib.Path(self.folder.name) / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def faults(self, check):
        folder = pathlib.Path(self.folder.name)
        files = sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())
        return check(walls.House(folder, files))

    def test_a_sound_house_has_none(self):
        self.assertEqual([], [fault for check in walls.CHECKS for fault in self.faults(check)])

    def test_an_unknown_folder(self):
        self.write("attic/Box.h", "#pragma once\n")
        self.assertEqual(["attic/Box.h: no room of this name is in tests/walls/rooms"],
                         self.faults(walls.unknown_folders))

    def test_an_include_against_the_arrow(self):
        self.write("kit/Button.cpp", '#include "kit/Button.h"\n#include "orrinvale/Engine.h"\n')
        self.assertEqual(["kit/Button.cpp (kit) may not include orrinvale/Engine.h (logic)"],
                         self.faults(walls.forbidden_includes))

    def test_an_interface_header_in_the_logic(self):
        self.write("orrinvale/Window.h", "#include <QWidget>\n")
        self.write("orrinvale/Engine.cpp", '#include "orrinvale/Engine.h"\n#include "orrinvale/Window.h"\n')
        self.assertEqual(["orrinvale/Engine.cpp (logic) may not include orrinvale/Window.h (interface)"],
                         self.faults(walls.forbidden_includes))

    def test_qt_in_the_logic(self):
        self.write("orrinvale/Engine.h", "#include <QString>\n")
        self.assertEqual(1, len(self.faults(walls.qt_in_rooms_without)))

    def test_a_question_for_the_operating_system(self):
        for condition in ("#ifdef __linux__", "#  if defined(__APPLE__)", "#elif defined(Q_OS_MACOS)"):
            self.write("base/Clock.h", f"#pragma once\n{condition}\n#endif\n")
            self.assertEqual(1, len(self.faults(walls.operating_systems)), condition)

    def test_a_circle(self):
        self.write("kit/Ring.h", '#include "kit/Button.h"\n')
        self.write("kit/Button.cpp", '#include "kit/Button.h"\n#include "kit/Ring.h"\n')
        self.assertEqual(["kit/Button -> kit/Ring -> kit/Button"], self.faults(walls.circles))

    def test_a_header_behind_others(self):
        self.write("orrinvale/Engine.cpp", '#include "base/Clock.h"\n#include "orrinvale/Engine.h"\n')
        self.assertEqual(1, len(self.faults(walls.headers_behind_others)))


if __name__ == "__main__":
    unittest.main()
