#!/usr/bin/python3
"""Dictations on KDE's compositor, by a shortcut of its portal."""

import os
import signal
import sys
import unittest

from dictationcase import CHILD, CHILD_WORDS, FORMER, ROOT, DictationCase, main, program_under_test, words

sys.path.insert(0, str(ROOT / "scripts" / "lib"))

import kwindesktop  # noqa: E402
import waylanddesktop  # noqa: E402
from kwindesktop import KwinDesktop, KwinVantro  # noqa: E402

SHORTCUT = "ctrl+alt+d"


class KwinCase(DictationCase):
    NEEDED = (*waylanddesktop.NEEDED, *kwindesktop.NEEDED)

    @classmethod
    def setUpClass(cls):
        if not kwindesktop.is_plasma_5():
            raise unittest.SkipTest("made for the compositor of Plasma 5")
        super().setUpClass()

    @classmethod
    def make_desktop(cls):
        return KwinDesktop(program_under_test())

    @classmethod
    def make_vantro(cls, program):
        return KwinVantro(cls.desktop, program)


class KwinDictationTest(KwinCase):
    def test_words_arrive_in_the_window_and_the_clipboard_comes_back(self):
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait(lambda: self.desktop.clipboard() == FORMER, 10, "the former clipboard")
        status = self.vantro.status()
        self.assertEqual((status["clipboard_by"], status["paste_by"], status["panel_by"], status["missing"]),
                         ("data-control", "fake-input", "layer-shell", []))
        self.assertNotIn("how_to_bind", status)

    def test_text_arrives_in_a_terminal(self):
        terminal = self.desktop.open_terminal()
        self.addCleanup(terminal.program.stop)
        self.dictate(CHILD)
        self.wait(terminal.changed, 60, "text in the terminal")
        self.assertEqual(words(terminal.text()), CHILD_WORDS)

    def test_a_held_modifier_does_not_spoil_the_paste(self):
        self.dictate(CHILD)
        self.desktop.display.key("shift", True)
        try:
            self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        finally:
            self.desktop.display.key("shift", False)

    def test_escape_cancels(self):
        with self.delivers_nothing():
            self.vantro.open_launcher()
            self.speak(CHILD)
            self.desktop.press("escape")
            self.wait_until_over()
        self.check_next_dictation()

    def test_text_for_a_window_that_was_closed_waits_on_the_clipboard(self):
        terminal = self.desktop.open_terminal()
        self.vantro.open_launcher()
        self.speak(CHILD)
        terminal.program.stop()
        self.vantro.end_dictation()
        self.wait(lambda: words(self.desktop.clipboard() or "") == CHILD_WORDS, 60, "the text on the clipboard")
        self.wait_until_over()
        self.assertEqual(self.arrived(), "", "the text came into another window")

    def test_the_shortcut_comes_back_with_the_portal(self):
        self.vantro.open_launcher()
        self.speak(CHILD)
        os.kill(self.desktop.process_of("org.freedesktop.portal.Desktop"), signal.SIGKILL)
        self.vantro.end_dictation()
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over()
        self.wait(lambda: self.vantro.status()["shortcut_by"] == kwindesktop.PORTAL, 20, "the portal")
        self.check_next_dictation()


class KwinHoldTest(KwinCase):
    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        cls.vantro.configure(holdToTalk=True)

    def test_recording_lasts_as_long_as_the_shortcut_is_held(self):
        self.desktop.display.chord_down(SHORTCUT)
        self.wait(self.desktop.audio.recording_sources, 10, "the recording")
        self.speak(CHILD)
        self.desktop.display.chord_up(SHORTCUT)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)


if __name__ == "__main__":
    waylanddesktop.run_as_user()
    main()
