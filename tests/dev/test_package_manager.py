# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""What ./dev does while another program installs packages: the real apt-get, and one that is played."""
import fcntl
import os
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
LOCK = "Could not get lock /var/lib/dpkg/lock-frontend. It is held by process 7 (unattended-upgr)"
WAITING = f"The package manager is busy; waiting up to five minutes. {LOCK}"


class PackageManager(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        for name in ["dev", "packages.txt"]:
            shutil.copy(SOURCE / name, self.folder)
        (self.folder / "bin").mkdir()
        self.calls = self.folder / "calls"
        self.calls.touch()
        self.play("dpkg-query", "")  # nothing is installed
        self.play("sudo", 'exec "$@"')
        self.play("cmake", f"echo cmake >>{self.calls}")
        self.play("sleep", f"echo sleep $1 >>{self.calls}")

    def play(self, name, script):
        program = self.folder / "bin" / name
        program.write_text(f"#!/bin/sh\n{script}\n")
        program.chmod(0o755)

    def play_apt_get(self, failures, message):
        """It fails so often, of whatever it is asked."""
        self.play("apt-get", f"echo apt-get >>{self.calls}\n"
                  f"[ $(grep -c apt-get {self.calls}) -gt {failures} ] || {{ echo 'E: {message}' >&2; exit 100; }}")

    def environment(self, **more):
        return {**os.environ, "PATH": f"{self.folder}/bin:{os.environ['PATH']}", **more}

    def build(self):
        return subprocess.run([self.folder / "dev", "build"], capture_output=True, text=True, env=self.environment())

    def called(self):
        return self.calls.read_text().split("\n")[:-1]

    def test_it_waits_until_the_other_is_done_and_says_so_once(self):
        self.play_apt_get(3, LOCK)
        done = self.build()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stdout.count(WAITING), 1)
        self.assertEqual(self.called(), ["apt-get", "sleep 5"] * 3 + ["apt-get"] * 2 + ["cmake"] * 2)
        self.assertEqual(done.stderr, "")

    def test_after_five_minutes_it_gives_up_with_what_apt_said(self):
        self.play_apt_get(1000, LOCK)
        done = self.build()
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.count(WAITING), 1)
        self.assertIn(LOCK, done.stderr)
        self.assertEqual(self.called(), ["apt-get", "sleep 5"] * 60)

    def test_any_other_failure_ends_it_at_once(self):
        self.play_apt_get(1000, "Unable to locate package ninja-build")
        done = self.build()
        self.assertEqual(done.returncode, 1)
        self.assertNotIn("busy", done.stdout)
        self.assertEqual(done.stderr, "E: Unable to locate package ninja-build\n")
        self.assertEqual(self.called(), ["apt-get"])

    def test_the_lock_of_the_real_apt_get_is_waited_for(self):
        lists = self.folder / "var/lib/apt/lists"
        for folder in [lists / "partial", self.folder / "var/cache/apt/archives/partial", self.folder / "etc/apt",
                       self.folder / "var/lib/dpkg"]:
            folder.mkdir(parents=True)
        (self.folder / "var/lib/dpkg/status").touch()
        (self.folder / "apt.conf").write_text(f'Dir "{self.folder}/"; Dir::State::status "{self.folder}/var/lib/dpkg/status";')
        (self.folder / "bin/sleep").unlink()
        with open(lists / "lock", "w") as lock:
            fcntl.lockf(lock, fcntl.LOCK_EX)
            program = subprocess.Popen([self.folder / "dev", "build"], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                       text=True, env=self.environment(APT_CONFIG=str(self.folder / "apt.conf")))
            self.addCleanup(program.kill)
            lines = iter(program.stdout.readline, "")
            self.assertTrue(any(line.startswith("The package manager is busy") and f"{lists}/lock" in line
                                for line in lines))
            time.sleep(1)
            self.assertIsNone(program.poll())
        _, errors = program.communicate(timeout=30)
        # It got as far as looking for packages, of which there are none here.
        self.assertIn("Unable to locate package", errors)
        self.assertNotIn("lock", errors)


if __name__ == "__main__":
    unittest.main()
