# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""test_installed_files.py BUILD_FOLDER VERSION: installs the build into a temporary folder and looks at every file."""
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
BUILD, VERSION = sys.argv[1:3]
ICON_SIZES = [16, 22, 24, 32, 48, 64, 128, 256, 512]
ALWAYS = {"bin/orrinvale", "lib/orrinvale/orrinvale-film.so", "lib/orrinvale/orrinvale-layer-shell.so",
          "share/applications/orrinvale.desktop",
          "share/metainfo/com.orrinvale.orrinvale.metainfo.xml", "share/man/man1/orrinvale.1",
          "share/doc/orrinvale/LICENSE", "share/icons/hicolor/scalable/apps/orrinvale.svg",
          *(f"share/icons/hicolor/{size}x{size}/apps/orrinvale.png" for size in ICON_SIZES)}
WITH_FEEDBACK = {"bin/orrinvale-feedback", "share/man/man1/orrinvale-feedback.1"}


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, **options)


class InstalledFiles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.root = Path(cls.temporary.name, "usr")
        run("cmake", "--install", BUILD, "--prefix", "/usr", check=True,
            env={**os.environ, "DESTDIR": cls.temporary.name})

    def test_there_are_these_files_and_no_others(self):
        files = {str(path.relative_to(self.root)) for path in self.root.rglob("*") if path.is_file()}
        feedback = WITH_FEEDBACK if Path(BUILD, "orrinvale-feedback").exists() else set()
        self.assertEqual(files, ALWAYS | feedback)

    def test_everyone_may_read_them_and_nobody_becomes_root_by_them(self):
        for path in self.root.rglob("*"):
            mode = path.stat().st_mode & 0o7777
            is_program = path.is_dir() or path.parent.name == "bin"
            self.assertEqual(mode & 0o7555, 0o555 if is_program else mode & 0o111 | 0o444, path)

    def test_the_program_looks_for_no_library_in_the_build_folder(self):
        for name in ["bin/orrinvale", "lib/orrinvale/orrinvale-film.so"]:
            self.assertNotRegex(run("readelf", "-d", self.root / name, check=True).stdout, "RPATH|RUNPATH")

    def test_the_desktop_entry_is_valid(self):
        check = run("desktop-file-validate", self.root / "share/applications/orrinvale.desktop")
        self.assertEqual((check.returncode, check.stdout), (0, ""))

    def test_the_software_catalogue_can_read_the_description(self):
        file = self.root / "share/metainfo/com.orrinvale.orrinvale.metainfo.xml"
        check = run("appstreamcli", "validate", "--no-net", "--pedantic", file)
        self.assertEqual(check.returncode, 0, check.stdout)
        text = file.read_text()
        self.assertNotIn("@", text)
        screenshots = text.count("<screenshot>") + text.count("<screenshot ")
        self.assertGreater(screenshots, 0)
        self.assertEqual(text.count("<caption>"), screenshots)

    def test_icons_have_their_sizes_and_clear_corners(self):
        for size in ICON_SIZES:
            icon = self.root / f"share/icons/hicolor/{size}x{size}/apps/orrinvale.png"
            self.assertEqual(struct.unpack(">II", icon.read_bytes()[16:24]), (size, size))
            corner = run("convert", icon, "-format", "%[fx:p{0,0}.a] %[fx:p{w/2,h/2}.a]", "info:", check=True).stdout
            self.assertEqual(corner, "0 1", size)

    def test_manual_pages_are_well_formed(self):
        for page in (self.root / "share/man/man1").iterdir():
            check = run("man", "--warnings", "-l", "-Tutf8", "-Z", page, env={**os.environ, "MANROFFSEQ": ""})
            self.assertEqual((check.returncode, check.stderr), (0, ""), page)
            self.assertIn(VERSION, page.read_text())

    def test_whatever_the_packages_are_built_with_is_installed_by_dev(self):
        control = (SOURCE / "packaging/debian/control").read_text()
        wanted = re.search(r"^Build-Depends:\n((?: .*\n)*)", control, re.M)[1].replace("debhelper-compat (= 13)", "debhelper")
        installed = re.findall(r"^(?:build|package): *(\S+)", (SOURCE / "packages.txt").read_text(), re.M)
        self.assertEqual(set(wanted.replace(",", "").split()) - set(installed), set())

    def test_the_version_is_the_same_everywhere(self):
        release = re.search(r'<release version="([^"]*)"',
                            (self.root / "share/metainfo/com.orrinvale.orrinvale.metainfo.xml").read_text())
        self.assertEqual(release[1], VERSION)
        self.assertRegex((SOURCE / "packaging/debian/changelog").read_text().splitlines()[0],
                         rf"^orrinvale \({re.escape(VERSION)}\) ")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
