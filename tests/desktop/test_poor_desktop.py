#!/usr/bin/python3
"""Something that every desktop has is missing or full. The program says so, or does without."""

import json
import os
import shlex
import signal
from pathlib import Path

from dictationcase import CHILD, CHILD_WORDS, STOP_KEY, DesktopError, main, words
from shellcase import SETTINGS_TITLE, ShellCase
from smalldisk import SmallDisk

NO_BUS = {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"}


class PoorDesktopTest(ShellCase):
    def test_without_a_display_it_ends_with_a_message(self):
        result = self.vantro.run(env={"DISPLAY": ":99999"})
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("display", result.stderr)

    def test_without_a_journal_the_logs_command_says_so(self):
        if Path("/run/systemd/journal/socket").exists():
            self.skipTest("this system has a journal")
        result = self.vantro.run("logs")
        self.assertEqual(result.returncode, 4)
        self.assertIn("no journal", result.stderr)

    def start_without_bus(self):
        process = self.desktop.start(self.vantro.program, "--shortcut", "Ctrl+Alt+D", env=NO_BUS)
        self.wait(lambda: "is downloaded" in process.log.read_text(), 20, "the start")
        return process

    def test_without_a_session_bus_a_second_program_opens_the_firsts_window(self):
        self.vantro.quit()
        first = self.start_without_bus()
        for kind, env in (("also without", NO_BUS), ("with a bus", {})):
            with self.subTest(kind):
                second = self.vantro.run(env=env)
                self.assertEqual(second.returncode, 0, second.stderr)
                self.assertIn(f"already running (process {first.pid} on display {self.desktop.env['DISPLAY']})",
                              second.stdout)
                self.close(SETTINGS_TITLE)

        os.kill(first.pid, signal.SIGSTOP)
        second = self.vantro.run(env=NO_BUS)
        self.assertEqual(second.returncode, 1)
        self.assertIn("does not answer", second.stderr)

        first.kill()  # leaves its lock file and its socket
        self.vantro.start()
        self._log_before = 0
        self.dismiss_alert_saying("vantro ended unexpectedly")

    def test_without_a_session_bus_it_dictates(self):
        self.vantro.quit()
        process = self.start_without_bus()
        self.desktop.activate(self.editor.window)
        self.vantro.open_launcher()
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.assertEqual(process.stop(), 0)
        self.vantro.start()

    def test_a_history_that_cannot_be_loaded_is_told_of_on_the_screen(self):
        self.vantro.quit()
        process = self.desktop.start(self.vantro.program, env={"XDG_DATA_HOME": "/proc/data"})
        message = self.wait(lambda: self.vantro.window("vantro"), 20, "the message")
        self.has_keyboard(message)
        self.desktop.press("Return")
        process.expect_exit(1)
        self.assertIn("Failed to load persistent stores: The folder /proc/data/vantro cannot be created",
                      process.log.read_text())
        self.vantro.start()

    def test_with_a_home_that_cannot_be_written_to_it_dictates(self):
        self.vantro.quit()
        read_only = {"XDG_CONFIG_HOME": "/proc/config", "XDG_STATE_HOME": "/proc/state"}
        self.vantro.start(env=read_only)
        self._log_before = 0
        self.dismiss_alert_saying("/proc/config/vantro/vantro.ini cannot be written")
        self.desktop.activate(self.editor.window)
        self.check_next_dictation()
        self.restart()


class FullDiskTest(ShellCase):
    """Settings, history and state lie on a disk that fills up while the program runs."""

    def setUp(self):
        super().setUp()
        self.vantro.quit()
        try:
            self.disk = SmallDisk(self.desktop)
        except DesktopError:
            self.vantro.start()
            self.skipTest("file systems cannot be mounted here")
        small = self.disk.path
        self.disk.run("mkdir", "-p", small / "data/vantro")
        self.disk.run("ln", "-s", self.vantro.models_folder, small / "data/vantro/models")
        self.env = {f"XDG_{kind}_HOME": str(small / kind.lower()) for kind in ("CONFIG", "DATA", "STATE")}
        self.on_the_disk = self.desktop.home / "vantro-on-the-small-disk"
        self.on_the_disk.write_text(f'#!/bin/sh\nexec {shlex.join(self.disk.command(str(self.vantro.program)))} "$@"\n')
        self.on_the_disk.chmod(0o755)
        self.addCleanup(self.leave_disk, self.vantro.program)
        self.vantro.program = self.on_the_disk
        self.start()

    def leave_disk(self, program):
        self.vantro.quit()
        self.disk.stop()
        self.vantro.program = program
        self.vantro.start()

    def start(self):
        self.vantro.start(env=self.env)
        self._log_before = 0

    def settings(self):
        return self.disk.run("cat", self.disk.path / "config/vantro/vantro.ini")

    def history(self):
        listed = json.loads(self.vantro.run("history", "--json", env=self.env).stdout)
        return [" ".join(words(entry["transcription"])) for entry in listed]

    def test_dictations_are_delivered_settings_stay_whole_and_the_next_start_works(self):
        self.check_next_dictation()
        settings = self.settings()
        self.disk.fill()
        self.check_next_dictation()
        self.dismiss_alert_saying("There is no space left on the disk for the history")
        self.check_next_dictation()
        self.assertEqual(self.vantro.alerts(), [], "told twice")
        self.assertEqual(self.vantro.run("--shortcut", "Ctrl+Alt+K", env=self.env).returncode, 0)
        self.wait(lambda: len(self.vantro.alerts()) == 2, 10, "both alerts")
        self.assertIn("cannot be written", self.news())
        for alert in self.vantro.alerts():
            self.close(alert.title)
        self.assertEqual(self.settings(), settings)
        self.vantro.quit()
        self.disk.make_room()
        self.start()
        self.assertEqual(self.history(), [" ".join(CHILD_WORDS)])
        self.assertNotIn("could not be read", self.vantro.log())
        self.check_next_dictation()
        self.assertEqual(len(self.history()), 2)


if __name__ == "__main__":
    main()
