#!/usr/bin/python3
"""Something that every desktop has is missing. The program says so, or does without."""

import os
import signal
from pathlib import Path

from dictationcase import CHILD, CHILD_WORDS, STOP_KEY, main, words
from shellcase import SETTINGS_TITLE, ShellCase

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
                self.assertIn(f"running already (process {first.pid} on display {self.desktop.env['DISPLAY']})",
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

    def test_with_a_home_that_cannot_be_written_to_it_dictates(self):
        self.vantro.quit()
        read_only = {"XDG_CONFIG_HOME": "/proc/config", "XDG_STATE_HOME": "/proc/state"}
        self.vantro.start(env=read_only)
        self._log_before = 0
        self.check_next_dictation()
        self.restart()


if __name__ == "__main__":
    main()
