#!/usr/bin/python3
"""The end of the program: a crash, a signal."""

import signal

from dictationcase import CHILD, SHORTCUT_KEYS, STOP_KEY, main
from shellcase import ShellCase


class EndTest(ShellCase):
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
        self.dismiss_alert_saying("vantro ended unexpectedly")
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
                self.assertNotIn("ended unexpectedly", self.vantro.log())


if __name__ == "__main__":
    main()
