#!/usr/bin/python3
"""Dictations by the hot key and from the command line, into an editor and a terminal, and what users do to them."""

import os
import re
import subprocess
import time

from dictationcase import (CANCEL_KEY, CARDS, CHILD, CHILD_WORDS, FORMER, HUD_TITLE, SHORTCUT_KEYS, STOP_KEY,
                           DictationCase, main, words)

# Between what the clock says and what was recorded: until the first sample is there, and the end of the last block.
LOST_AT_THE_EDGES_S = 0.15
REPEATS_S = 1.2


class GoodDictationTest(DictationCase):
    def test_words_spoken_right_after_the_shortcut_and_right_before_space_are_kept(self):
        self.desktop.press(SHORTCUT_KEYS)
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)

        clock_s, captured_s = map(float, re.search(r"wall clock ([\d.]+)s, captured ([\d.]+)s", self.news()).groups())
        self.assertLess(clock_s - captured_s, LOST_AT_THE_EDGES_S)
        self.wait(lambda: self.desktop.clipboard() == FORMER, 5, "the former clipboard")

    def test_the_mouse_alone_ends_and_cancels(self):
        launcher = self.vantro.open_launcher()
        self.speak(CHILD)
        self.click(launcher.x + 60, launcher.y + launcher.height - 26)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over()
        self.wait(lambda: self.desktop.clipboard() == FORMER, 5, "the former clipboard")
        launcher = self.vantro.open_launcher()
        with self.delivers_nothing():
            self.click(launcher.x + launcher.width - 50, launcher.y + launcher.height - 26)
            self.wait_until_over()
        self.vantro.run("retry", "--discard")

    def click(self, x, y):
        self.desktop.run("xdotool", "mousemove", str(x), str(y), "click", "1")

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

    def test_pictures_and_formatted_text_come_back_when_wanted(self):
        self.restart(restoreEveryFormat=True)
        self.addCleanup(self.restart)
        former = {"image/png": os.urandom(3_000_000), "text/html": b"<b>bold</b>"}
        for target, contents in former.items():
            def read():
                return subprocess.run(["xclip", "-selection", "clipboard", "-t", target, "-out"],
                                      env=self.desktop.env, capture_output=True, timeout=10).stdout

            owner = self.desktop.start("xclip", "-selection", "clipboard", "-t", target, "-in", "-quiet", stdin=contents)
            self.wait(lambda: read() == contents, 5, "the clipboard")
            for _ in range(2):  # the second time it is this program that gives them
                before = self.editor.text()
                self.dictate(CHILD)
                self.wait(lambda: words(self.editor.text()[len(before):]) == CHILD_WORDS, 60, "the text")
                self.wait_until_over()
                self.wait(lambda: read() == contents, 10, f"the former {target}")
            owner.stop()

    def test_commands_steer_the_running_program(self):
        self.assertEqual(self.vantro.run("start").returncode, 0)
        self.vantro.wait_for_launcher()
        self.assertEqual(self.vantro.status()["state"], "recording")
        self.assertEqual(self.vantro.run("start").returncode, 1)
        self.speak(CHILD)
        self.assertEqual(self.vantro.run("stop").returncode, 0)
        refused = self.vantro.run("stop")
        self.assertEqual(refused.returncode, 1)
        self.assertIn("nothing is being recorded", refused.stderr)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)

        for state in ("recording", "idle"):
            self.assertEqual(self.vantro.run("toggle").returncode, 0)
            self.vantro.wait_for_state(state)


class InterruptedDictationTest(DictationCase):
    def test_a_cancelled_recording_leaves_no_trace(self):
        with self.delivers_nothing():
            self.vantro.open_launcher()
            self.speak(CARDS)
            self.desktop.press(CANCEL_KEY)
            self.wait_until_over()
            self.assertEqual(self.desktop.audio.recording_sources(), [])
        self.check_next_dictation()

    def test_a_held_escape_does_not_repeat_into_the_window_behind(self):
        terminal = self.desktop.open_xterm()
        self.addCleanup(terminal.program.stop)
        self.vantro.open_launcher()
        self.desktop.display.key(CANCEL_KEY, True)
        # As long as it takes a key of this keyboard to repeat several times.
        time.sleep(REPEATS_S)
        self.desktop.display.key(CANCEL_KEY, False)
        self.wait_until_over()
        self.wait(lambda: self.desktop.display.active_window() == terminal.window.id, 5, "the terminal's turn")
        self.desktop.press("x")
        self.wait(terminal.changed, 5, "what is typed next")
        self.assertEqual(terminal.text(), "x")

    def test_a_cancel_right_after_the_stop_comes_before_the_transcription(self):
        with self.delivers_nothing():
            self.vantro.open_launcher()
            self.speak(CARDS)
            self.desktop.press(STOP_KEY)
            self.desktop.press(CANCEL_KEY)
            self.wait_until_over()
        self.assertNotIn("Extracting transcription", self.news())
        self.check_next_dictation()

    def test_a_cancel_during_the_transcription_discards_it(self):
        with self.delivers_nothing():
            self.vantro.open_launcher()
            self.speak(CARDS)
            self.desktop.press(STOP_KEY)
            self.wait(lambda: "Transcribing with" in self.news(), 10, "the transcription")
            self.desktop.press(CANCEL_KEY)
            self.wait_until_over()
        self.assertNotIn("Attempting to paste", self.news())
        self.check_next_dictation()

    def test_ten_presses_within_a_second_start_one_dictation(self):
        for _ in range(10):
            self.desktop.press(SHORTCUT_KEYS)
        self.vantro.wait_for_launcher()
        self.assertEqual(len(self.desktop.audio.recording_sources()), 1)
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over()
        self.assertEqual(self.news().count("Starting recording"), 1)

    def test_text_for_a_window_that_was_closed_stays_on_the_clipboard(self):
        terminal = self.desktop.open_xterm()
        self.vantro.open_launcher()
        self.speak(CHILD)
        terminal.program.stop()
        self.vantro.end_dictation()
        self.wait(lambda: words(self.desktop.clipboard() or "") == CHILD_WORDS, 60, "the text on the clipboard")
        self.wait(lambda: self.vantro.window(HUD_TITLE), 5, "the notice that there is text to be pasted")
        self.wait_until_over()
        self.assertEqual(self.arrived(), "", "the text came into another window")
        self.wait(lambda: not self.vantro.window(HUD_TITLE), 10, "the notice to go")
        # Nor is it taken away again later, when a paste would have been over.
        self.assertEqual(words(self.desktop.clipboard()), CHILD_WORDS)
        self.desktop.activate(self.editor.window)
        self.check_next_dictation()

    def test_text_that_a_terminal_does_not_take_waits_on_the_clipboard(self):
        terminal = self.desktop.open_xterm("Unheard")
        self.addCleanup(terminal.program.stop)
        self.dictate(CHILD)
        self.wait(lambda: self.vantro.window(HUD_TITLE), 60, "the notice that there is text to be pasted")
        self.wait_until_over()
        self.assertEqual(words(self.desktop.clipboard()), CHILD_WORDS)
        self.wait(lambda: not self.vantro.window(HUD_TITLE), 20, "the notice to go")
        self.assertEqual(words(self.desktop.clipboard()), CHILD_WORDS)

    def test_text_for_a_user_who_has_moved_on_waits_on_the_clipboard(self):
        terminal = self.desktop.open_xterm()
        self.addCleanup(terminal.program.stop)
        self.desktop.activate(self.editor.window)
        self.dictate(CARDS)
        window = terminal.window
        self.desktop.run("xdotool", "mousemove", window.x + 20, window.y + 20, "click", 1)
        self.wait(lambda: self.vantro.window(HUD_TITLE), 60, "the notice that there is text to be pasted")
        self.assertEqual(self.desktop.display.active_window(), terminal.window.id)
        self.wait_until_over()
        self.assertEqual(self.arrived() + terminal.text(), "")
        self.assertNotEqual(self.desktop.clipboard(), FORMER)
        self.wait(lambda: not self.vantro.window(HUD_TITLE), 20, "the notice to go")


if __name__ == "__main__":
    main()
