#!/usr/bin/python3
"""Dictations that go well: by the hot key, from the command line, into an editor and a terminal."""

import re
import unittest

from dictationcase import CHILD, CHILD_WORDS, STOP_KEY, SHORTCUT_KEYS, DictationCase, main, words

# Between what the clock says and what was recorded: until the first sample is there, and the end of the last block.
LOST_AT_THE_EDGES_S = 0.15


class DictationTest(DictationCase):
    def test_words_spoken_right_after_the_shortcut_and_right_before_space_are_kept(self):
        self.desktop.set_clipboard("what was copied before")
        self.desktop.press(SHORTCUT_KEYS)
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)

        clock_s, captured_s = map(float, re.search(r"wall clock ([\d.]+)s, captured ([\d.]+)s", self.news()).groups())
        self.assertLess(clock_s - captured_s, LOST_AT_THE_EDGES_S)
        self.wait(lambda: self.desktop.clipboard() == "what was copied before", 5, "the former clipboard")

    def test_text_arrives_in_a_terminal_and_both_selections_come_back(self):
        terminal = self.desktop.open_xterm()
        self.addCleanup(terminal.program.stop)
        self.desktop.set_clipboard("copied")
        self.desktop.set_clipboard("selected", "primary")
        self.dictate(CHILD)
        self.wait(terminal.changed, 60, "text in the terminal")
        self.assertEqual(words(terminal.text()), CHILD_WORDS)
        self.wait(lambda: self.desktop.clipboard() == "copied", 5, "the former clipboard")
        self.wait(lambda: self.desktop.clipboard("primary") == "selected", 5, "the former selection")

    def test_commands_steer_the_running_program(self):
        self.assertEqual(self.vantro.run("start").returncode, 0)
        self.vantro.wait_for_launcher()
        self.assertEqual(self.vantro.status()["state"], "recording")
        self.assertEqual(self.vantro.run("start").returncode, 1)
        self.speak(CHILD)
        self.assertEqual(self.vantro.run("stop").returncode, 0)
        self.assertEqual(self.vantro.status()["state"], "processing")
        self.assertEqual(self.vantro.run("start").returncode, 1)
        self.assertEqual(self.vantro.run("stop").returncode, 1)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)


if __name__ == "__main__":
    main()
