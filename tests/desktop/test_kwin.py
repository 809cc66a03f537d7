#!/usr/bin/python3
"""Dictations on KDE's compositor, by the command that its settings bind to a shortcut."""

import sys

from dictationcase import CHILD, CHILD_WORDS, FORMER, ROOT, DictationCase, main, words

sys.path.insert(0, str(ROOT / "scripts" / "lib"))

import kwindesktop  # noqa: E402
import waylanddesktop  # noqa: E402
from kwindesktop import KwinDesktop, KwinVantro  # noqa: E402


class KwinDictationTest(DictationCase):
    NEEDED = (*waylanddesktop.NEEDED, *kwindesktop.NEEDED)

    @classmethod
    def make_desktop(cls):
        return KwinDesktop()

    @classmethod
    def make_vantro(cls, program):
        return KwinVantro(cls.desktop, program)

    def test_words_arrive_in_the_window_and_the_clipboard_comes_back(self):
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait(lambda: self.desktop.clipboard() == FORMER, 10, "the former clipboard")
        status = self.vantro.status()
        self.assertEqual((status["clipboard_by"], status["paste_by"], status["panel_by"], status["missing"]),
                         ("data-control", "fake-input", "layer-shell", []))

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


if __name__ == "__main__":
    waylanddesktop.run_as_user()
    main()
