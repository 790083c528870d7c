#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Broken files, hostile names and missing folders: each has its answer, and the application stays up."""
import json
import os
import signal
import subprocess
import time
import unittest
from unittest import mock

from desktop import ORDINARY, PROGRAM, DesktopTest, inhibitors

BROKEN = {"truncated": b'[{"id":"0F6B3C2E', "empty": b"", "binary": bytes(range(256)), "wrong": b'{"a": [1, "b", null]}',
          "huge": b"[" + b'{"id": 1},' * 5_000_000}


class BadInputTest(DesktopTest):
    def end(self):
        self.program.terminate()
        self.assertEqual(self.program.wait(5), 0)

    def test_broken_log_and_usage_files_are_an_empty_history(self):
        self.support.mkdir(parents=True)
        for name, content in BROKEN.items():
            with self.subTest(name):
                for file in ["activity_log.json", "app_usage.json"]:
                    (self.support / file).write_bytes(content)
                self.choose(wakeMode="Always Awake")
                self.launch()
                self.wait_for("inhibitor", inhibitors)
                log = self.support / "activity_log.json"
                self.wait_for("new log", lambda: log.exists() and log.stat().st_size < 1000  # the huge one has gone
                              and self.messages() == ["Manual mode"])
                aside = "" if name != "huge" else ".unreadable"  # larger than any of ours
                self.assertEqual((self.support / ("app_usage.json" + aside)).read_bytes(), content)
                self.end()

    def test_broken_settings_files_are_set_aside_and_the_defaults_stand(self):
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        for name, content in BROKEN.items():
            with self.subTest(name):
                self.settings.write_bytes(content)
                self.launch()
                self.download()
                self.wait_for("inhibitor", inhibitors)
                self.assertIn("orrinvale.firstLaunchDate", json.loads(self.settings.read_text()))
                self.end()
        aside = [file.read_bytes() for file in self.settings.parent.glob("settings.json.unreadable*")]
        self.assertEqual(sorted(map(hash, aside)), sorted(hash(BROKEN[name]) for name in ["truncated", "binary", "huge"]))

    def test_settings_of_wrong_types_are_the_defaults_and_stay_in_the_file(self):
        self.choose(wakeMode=7, cpuSensitivity="high", networkSignalEnabled="no", customProcesses={"a": 1}, unknown=[None])
        self.launch()
        self.download()
        self.wait_for("inhibitor", inhibitors)
        stored = json.loads(self.settings.read_text())
        self.assertEqual(stored["orrinvale.wakeMode"], 7)
        self.assertEqual(stored["orrinvale.unknown"], [None])

    def test_an_environment_without_a_language_is_nothing_to_complain_of(self):
        for given in [{}, {"LANG": "C"}, {"LC_ALL": "POSIX"}]:
            with self.subTest(given):
                with mock.patch.dict(os.environ, given):
                    for name in {"LANG", "LC_ALL", "LC_CTYPE"} - given.keys():
                        os.environ.pop(name, None)
                    self.launch()
                self.download()
                self.wait_for("inhibitor", inhibitors)
                self.assertEqual(self.output(), "")
                self.end()

    def test_hostile_file_names_are_logged_as_text(self):
        self.launch()
        names = [b"a\nb.part", b'"quoted".part', b"x" * 250 + b".part", b"M\xfctze.part", b"<b>R&D.part"]
        for name in names:
            with self.subTest(name):
                path = self.download(name)
                text = "Downloading " + name.decode("utf-8", "replace")
                self.wait_for("entry", lambda: text in self.messages())
                os.unlink(path)
        self.assertEqual(len(inhibitors()), 1)

    def test_a_missing_downloads_folder_is_one_line_and_its_making_is_seen(self):
        self.downloads.rmdir()
        self.launch()
        self.stays_up(0.5)
        self.assertEqual(self.output(), "⚠️ DownloadMonitor: could not open Downloads directory\n")
        self.downloads.mkdir()
        self.download()
        self.wait_for("inhibitor", inhibitors, 7)

    def test_a_downloads_folder_closed_to_the_user_is_one_line_and_its_opening_is_seen(self):
        self.download()
        self.downloads.chmod(0)
        self.launch(*ORDINARY)
        self.stays_up(0.5)
        self.assertEqual(self.output(), "⚠️ DownloadMonitor: could not open Downloads directory\n")
        self.assertEqual(inhibitors(), [])
        self.downloads.chmod(0o700)
        self.wait_for("inhibitor", inhibitors, 7)

    def test_a_file_in_the_folders_place_is_one_line(self):
        self.downloads.rmdir()
        self.downloads.write_text("a file")
        self.launch()
        self.stays_up(6)
        self.assertEqual(self.output(), "⚠️ DownloadMonitor: could not open Downloads directory\n")

    def test_a_folder_deleted_and_made_again_is_seen(self):
        self.launch()
        self.downloads.rmdir()
        self.stays_up(0.3)
        self.downloads.mkdir()
        self.download()
        self.wait_for("inhibitor", inhibitors, 7)

    def test_ten_thousand_entries_delay_nothing(self):
        for number in range(10_000):
            (self.downloads / f"file {number}").touch()
        self.launch()
        time.sleep(0.3)
        begin = time.monotonic()
        self.download()
        self.assertLess(self.wait_for("inhibitor", inhibitors) - begin, 1)

    def test_a_support_folder_that_is_a_file_is_silent(self):
        self.support.parent.mkdir(parents=True, exist_ok=True)
        self.support.write_text("a file")
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("inhibitor", inhibitors)
        self.stays_up(1)
        self.assertEqual((self.support.read_text(), self.output()), ("a file", ""))

    def test_a_support_folder_closed_to_writing_changes_nothing_else(self):
        self.support.mkdir(parents=True)
        (self.support / "activity_log.json").write_text("[]")
        self.support.chmod(0o500)
        self.choose(wakeMode="Always Awake")
        self.launch(*ORDINARY)
        self.wait_for("inhibitor", inhibitors)
        self.stays_up(1)
        self.assertEqual([file.name for file in self.support.iterdir()], ["activity_log.json"])
        self.assertEqual(((self.support / "activity_log.json").read_text(), self.output()), ("[]", ""))
        self.end()

    def kill_while_it_saves(self, file):
        """Ends it when the new file is written and the old one still stands."""
        environment = {**os.environ, "LD_PRELOAD": os.environ["KILL_AT_RENAME_LIBRARY"], "KILL_AT_RENAME": file.name}
        program = subprocess.Popen([PROGRAM], stdout=subprocess.DEVNULL, env=environment)
        self.launched.append(program)
        self.assertEqual(program.wait(20), -signal.SIGKILL)

    def test_a_kill_in_the_middle_of_saving_leaves_whole_files(self):
        log = self.support / "activity_log.json"
        self.choose(wakeMode="Always Awake")
        self.launch()
        self.wait_for("log", self.messages)
        self.program.kill()
        self.program.wait()
        self.choose(wakeMode="Always Awake")
        for file in [self.settings, log]:
            whole = file.read_bytes()
            self.kill_while_it_saves(file)
            self.assertEqual(file.read_bytes(), whole)
            self.assertNotEqual(list(file.parent.glob(".*")), [])
        self.launch()
        self.wait_for("next save", lambda: len(self.messages()) == 2)
        self.assertEqual(list(self.support.glob(".*")) + list(self.settings.parent.glob(".*")), [])

    def test_a_platform_without_a_window_system_opens_the_popover_too(self):
        with mock.patch.dict(os.environ, QT_QPA_PLATFORM="offscreen"):
            self.choose()
            self.launch()
            self.assertEqual(subprocess.run([PROGRAM], timeout=10).returncode, 0)
            self.stays_up(1)
            self.end()

    def test_a_full_disk_leaves_the_old_log_whole(self):
        self.support.mkdir(parents=True)
        script = f"mount -t tmpfs -o size=64k tmpfs {self.support} && echo '[]' >{self.support}/activity_log.json; " \
                 f"head -c 60000 /dev/zero >{self.support}/ballast; head -c 9000 /dev/zero >>{self.support}/ballast; " \
                 "shift 0; \"$@\" & p=$!; sleep 3; kill -0 $p && echo up; cat " \
                 f"{self.support}/activity_log.json; kill $p; wait $p"
        self.choose(wakeMode="Always Awake")
        result = subprocess.run(["unshare", "-m", "sh", "-c", script, "sh", PROGRAM], capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result)
        self.assertTrue(result.stdout.startswith("up\n[]\n"), result)


if __name__ == "__main__":
    unittest.main()
