# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Another version is installed over the application while it runs."""
import os
import shutil
import subprocess
import unittest
from pathlib import Path

import desktop


class Upgrade(desktop.DesktopTest):
    def setUp(self):
        super().setUp()
        self.choose()
        folder = Path(os.environ["HOME"], "bin")
        folder.mkdir()
        built = Path(desktop.PROGRAM).parent
        self.installed = folder / "orrinvale"
        self.module = folder / "orrinvale-film.so"
        shutil.copy(desktop.PROGRAM, self.installed)
        shutil.copy(built / "orrinvale-film.so", self.module)

    def replace(self, file, content):
        """As a package manager does: the old file lives on for those who hold it."""
        new = file.with_suffix(".new")
        new.write_bytes(content)
        new.chmod(0o755)
        new.rename(file)

    def open_popover(self):
        subprocess.run([self.installed], check=True, timeout=10)
        self.wait_for("popover", lambda: subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--pid", str(self.program.pid)], capture_output=True).stdout)

    def holds_module(self):
        return "orrinvale-film.so" in Path(f"/proc/{self.program.pid}/maps").read_text()

    def stays_with_module(self):
        self.wait_for("film module", self.holds_module)
        self.stays_up(1)
        self.assertTrue(self.holds_module())

    def test_the_module_of_the_same_version_is_loaded_with_the_popover(self):
        self.launch(self.installed)
        self.assertFalse(self.holds_module())
        self.open_popover()
        self.stays_with_module()

    def test_a_module_of_another_version_is_let_alone(self):
        self.launch(self.installed)
        module = self.module.read_bytes()
        entry_point = b"orrinvaleOpenFilm_"
        self.assertIn(entry_point, module)
        self.replace(self.module, module.replace(entry_point, entry_point[:-1] + b"9"))
        self.open_popover()
        self.stays_up(2)
        self.assertFalse(self.holds_module())
        self.assertEqual(self.output(), "")

    def test_a_module_that_is_none_or_gone_is_let_alone(self):
        for remove in [False, True]:
            self.launch(self.installed)
            self.replace(self.module, b"no module")
            if remove:
                self.module.unlink()
            self.open_popover()
            self.stays_up(2)
            self.assertFalse(self.holds_module())
            self.assertEqual(self.output(), "")
            self.program.terminate()
            self.assertEqual(self.program.wait(5), 0)

    def test_the_running_application_works_on_when_all_its_files_are_replaced(self):
        self.launch(self.installed)
        self.replace(self.module, self.module.read_bytes())
        self.replace(self.installed, self.installed.read_bytes())
        self.open_popover()
        self.stays_with_module()
        self.download()
        self.wait_for("inhibitor", desktop.inhibitors)


if __name__ == "__main__":
    unittest.main()
