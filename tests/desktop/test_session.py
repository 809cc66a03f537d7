#!/usr/bin/python3
"""The end of the program: a crash, a signal, a logout; and a session that is saved while it runs."""

import os
import shutil
import signal
import subprocess
import unittest

from dictationcase import CHILD, CHILD_WORDS, SHORTCUT_KEYS, STOP_KEY, main, words
from shellcase import ShellCase
from vantro import BUS_NAME


class EndCase(ShellCase):
    def refuse_kept_recording(self):
        alert = self.wait_for_alert_saying("before your recording")
        self.assertEqual(self.vantro.run("retry", "--discard").returncode, 0)
        self.wait_until_gone(alert)


class EndTest(EndCase):
    def test_the_next_start_after_a_crash_says_so_and_nothing_stays_behind(self):
        self.vantro.open_launcher()
        self.speak(CHILD)
        self.vantro.process.kill()
        self.assertEqual(self.desktop.display.keys_held(), [])
        with self.desktop.display.grabbed(SHORTCUT_KEYS):
            pass  # nobody holds it any more
        self.wait(lambda: not self.desktop.audio.recording_sources(), 5, "the microphone to be free")
        self.vantro.start()
        self._log_before = 0
        self.refuse_kept_recording()
        self.check_next_dictation()
        self.restart()
        self.assertNotIn("ended unexpectedly", self.vantro.log())

    def test_an_end_in_the_middle_of_a_dictation_is_orderly(self):
        for state in ("recording", "processing"):
            with self.subTest(state):
                before = self.desktop.clipboard()
                self.vantro.open_launcher()
                self.speak(CHILD)
                if state == "processing":
                    self.desktop.press(STOP_KEY)
                    self.vantro.wait_for_state(state)
                self.assertEqual(self.vantro.process.stop(signal.SIGTERM, patience_s=5), 0)
                self.assertEqual(self.desktop.audio.recording_sources(), [])
                self.assertEqual(self.desktop.clipboard(), before)
                self.vantro.start()
                self._log_before = 0
                self.refuse_kept_recording()
                self.assertNotIn("ended unexpectedly", self.vantro.log())

    def test_a_reader_of_its_output_may_end_before_it(self):
        self.vantro.quit()
        reader, writer = os.pipe()
        program = subprocess.Popen([self.vantro.program, "--shortcut", SHORTCUT_KEYS, "--verbose"],
                                   env=self.desktop.env, stdout=writer, stderr=writer)
        os.close(writer)
        os.close(reader)
        try:
            self.wait(lambda: self.desktop.bus_name_owned(BUS_NAME), 20, "the program")
            self.vantro.status()  # answers once the shortcut is there
            self.dictate(CHILD)
            self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
            self.wait_until_over()
        finally:
            program.terminate()
            self.assertEqual(program.wait(10), 0)
            self.vantro.start()
            self._log_before = 0


@unittest.skipUnless(shutil.which("xsm") and shutil.which("iceauth"), "there is no session manager")
class SessionTest(EndCase):
    """A session manager of the X Window System saves the session and ends it."""

    def start_session(self):
        """Has the program take part in a session of its own."""
        address = self.desktop.home / "session-address"
        address.unlink(missing_ok=True)
        publisher = self.desktop.home / "publish-session"
        publisher.write_text(f'#!/bin/sh\nprintf %s "$SESSION_MANAGER" > {address}.new && mv {address}.new {address}\n')
        publisher.chmod(0o755)
        (self.desktop.home / ".xsmstartup").write_text(f"{publisher}\n")
        self.saved_session = self.desktop.home / ".XSM-Default"
        self.saved_session.unlink(missing_ok=True)
        session = self.desktop.start("xsm")
        self.addCleanup(session.stop)
        self.wait(address.exists, 10, "the session manager")
        self.vantro.quit()
        self.vantro.start(env={"SESSION_MANAGER": address.read_text()})
        self._log_before = 0
        self.desktop.activate(self.editor.window)
        return session

    def test_a_logout_in_the_middle_of_a_dictation_keeps_what_was_said(self):
        for state in ("recording", "processing"):
            with self.subTest(state):
                session = self.start_session()
                with self.delivers_nothing():
                    self.vantro.open_launcher()
                    self.speak(CHILD)
                    if state == "processing":
                        self.desktop.press(STOP_KEY)
                        self.vantro.wait_for_state(state)
                    os.kill(session.pid, signal.SIGTERM)  # what a logout is to it
                    self.vantro.process.expect_exit(0)
                    session.expect_exit(0)
                self.assertEqual(self.desktop.display.keys_held(), [])
                self.assertEqual(self.desktop.audio.recording_sources(), [])
                self.assertNotIn("vantro", self.saved_session.read_text(), "would be started twice at the next login")
                self.vantro.start()
                self._log_before = 0
                self.refuse_kept_recording()
                self.assertNotIn("ended unexpectedly", self.vantro.log())

    def test_a_session_that_is_only_saved_lets_the_dictation_go_on(self):
        session = self.start_session()
        self.vantro.open_launcher()
        self.speak(CHILD)
        os.kill(session.pid, signal.SIGUSR1)
        self.wait(self.saved_session.exists, 10, "the saved session")
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.restart()


if __name__ == "__main__":
    main()
