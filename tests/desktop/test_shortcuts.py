#!/usr/bin/python3
"""The shortcut: chosen, changed while the program runs, held to talk, taken by others, and the display that goes."""

import json
import re
import time
import unittest
from contextlib import ExitStack

from dictationcase import CHILD, CHILD_WORDS, FORMER, REST_S, SHORTCUT_KEYS, STOP_KEY, DictationCase, main, words

from program import poll_until

SHORTCUT_TITLE = "Shortcut"
PROPOSALS = ("ctrl+alt+d", "ctrl+alt+space", "super+alt+d", "ctrl+super+d", "ctrl+shift+F9")
TAP_S = 0.05
HOLD_S = 0.5
REPEATS_S = 1.2  # a held key repeats several times meanwhile


class ShortcutsTest(DictationCase):
    def tearDown(self):
        self.vantro.run("shortcuts", "mode", "press")
        self.vantro.run("shortcuts", "clear", "stop")
        self.vantro.run("shortcuts", "set", "open", "Ctrl+Alt+D")
        super().tearDown()

    def shortcuts(self, *arguments, code=0):
        result = self.vantro.run("shortcuts", *arguments)
        self.assertEqual(result.returncode, code, result.stderr)
        return result.stdout or result.stderr

    def hold(self, keys=SHORTCUT_KEYS):
        """Presses the shortcut and waits until the recording runs; the keyboard stays where it is."""
        self.desktop.display.chord_down(keys)
        self.wait(self.desktop.audio.recording_sources, 10, "the recording")
        self.wait(self.vantro.launcher, 10, "the launcher")
        self.assertEqual(self.desktop.display.active_window(), self.editor.window.id)

    def test_a_running_program_follows_a_new_shortcut_at_once(self):
        self.assertIn("Ctrl+Alt+D works", self.shortcuts("test", "open"))
        self.shortcuts("set", "open", "Ctrl+Alt+K")
        self.shortcuts("set", "stop", "Return")
        state = json.loads(self.shortcuts("--json"))
        self.assertEqual([(s["keys"], s["works"]) for s in state["shortcuts"]], [("Ctrl+Alt+K", True), ("Return", True), ("", False)])
        self.desktop.press("ctrl+alt+k")
        self.vantro.wait_for_launcher()
        self.speak(CHILD)
        self.desktop.press("Return")
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over()
        self.desktop.press(SHORTCUT_KEYS)
        self.desktop.press("ctrl+alt+k")  # comes after it, and opens
        self.vantro.wait_for_launcher()
        self.assertEqual(self.news().count("Starting recording"), 2, "the former shortcut still works")
        self.desktop.press("Escape")

    def test_a_shortcut_that_cannot_work_is_refused_with_the_reason(self):
        self.assertIn("needed for typing", self.shortcuts("set", "open", "k", code=1))
        self.assertIn("already used by another program", self.shortcuts("set", "open", "Super+D", code=1))
        self.assertIn("--force", self.shortcuts("set", "stop", "Escape", code=1))
        self.shortcuts("set", "stop", "Escape", "--force")
        self.shortcuts("set", "open", "Ctrl+Nonsense", code=2)
        self.assertEqual(self.vantro.status()["shortcut"], "Ctrl+Alt+D")

    def test_hold_to_talk(self):
        self.assertEqual(self.shortcuts("mode", "hold").strip(), "hold")
        self.hold()
        self.speak(CHILD)
        self.desktop.display.chord_up(SHORTCUT_KEYS)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over()
        self.wait(lambda: self.desktop.clipboard() == FORMER, 5, "the former clipboard")

        with self.delivers_nothing():
            self.desktop.display.chord_down(SHORTCUT_KEYS)
            time.sleep(TAP_S)  # how long a finger that slipped stays
            self.desktop.display.chord_up(SHORTCUT_KEYS)
            self.wait(lambda: "Canceling the recording" in self.news(), 10, "the end of the tap's recording")
            self.wait_until_over()
        self.assertEqual(self.news().count("Extracting transcription"), 1)

    def test_escape_gives_a_held_recording_up_and_reaches_no_window(self):
        self.shortcuts("mode", "hold")
        terminal = self.desktop.open_xterm()
        self.addCleanup(terminal.program.stop)
        for released_first, taken in (("Escape", "F12"), (SHORTCUT_KEYS, "F12"), (SHORTCUT_KEYS, "ctrl+alt+Escape")):
            # Some window managers have a use for Escape with the shortcut's modifiers.
            with self.subTest(released_first=released_first, taken=taken), self.delivers_nothing(), \
                    self.desktop.display.grabbed(taken):
                before = self.news().count("Canceling the recording")
                self.desktop.display.chord_down(SHORTCUT_KEYS)
                self.wait(self.desktop.audio.recording_sources, 10, "the recording")
                time.sleep(HOLD_S)
                self.desktop.display.key("Escape", True)
                self.wait(lambda: not self.vantro.launcher(), 5, "the launcher to be gone")
                self.desktop.display.chord_up(released_first)
                time.sleep(REPEATS_S)
                self.desktop.display.chord_up(SHORTCUT_KEYS if released_first == "Escape" else "Escape")
                self.wait_until_over()
                self.assertEqual(self.news().count("Canceling the recording"), before + 1)
        self.desktop.press("Escape")  # is the terminal's own again
        self.wait(terminal.changed, 5, "what is typed next")
        self.assertEqual(terminal.text(), "\x1b")
        self.assertNotIn("Extracting transcription", self.news())

    def test_hold_to_talk_survives_a_change_of_the_layout_and_of_the_shortcut(self):
        self.shortcuts("mode", "hold")
        self.hold()
        self.speak(CHILD)
        held = self.desktop.display.keys_held()
        self.desktop.run("setxkbmap", "dvorak")
        try:
            for code in reversed(held):
                self.desktop.display.key_code(code, False)
            self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        finally:
            self.desktop.run("setxkbmap", "us")
        self.wait_until_over()

        self.hold()
        time.sleep(HOLD_S)
        self.shortcuts("set", "open", "F9")
        self.wait_until_over()
        self.desktop.display.chord_up(SHORTCUT_KEYS)

    def test_when_every_proposal_is_taken_the_program_asks(self):
        self.vantro.quit()
        with ExitStack() as others:
            for keys in PROPOSALS:
                others.enter_context(self.desktop.display.grabbed(keys))
            self.vantro.configure()
            self.vantro.start("--verbose")
            self._log_before = 0
            window = self.wait(lambda: self.vantro.window(SHORTCUT_TITLE), 20, "the question for a shortcut")
            self.wait(lambda: self.desktop.display.active_window() == window.id, 10, "its keyboard")
            time.sleep(REST_S)
            self.desktop.press("space")
            self.desktop.press("k")
            self.desktop.press("F9")
            self.wait(lambda: self.vantro.status()["shortcut"] == "F9", 10, "F9 to be taken")
            self.desktop.press("Escape")
            self.wait(lambda: not self.vantro.window(SHORTCUT_TITLE), 10, "the window to close")
            self.desktop.activate(self.editor.window)
            self.desktop.press("F9")
            self.vantro.wait_for_launcher()
            self.speak(CHILD)
            self.desktop.press(STOP_KEY)
            self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)


    def test_a_combination_that_another_program_had_for_a_moment_works_without_a_word(self):
        self.vantro.quit()
        with self.desktop.display.grabbed(SHORTCUT_KEYS):
            self.vantro.start()
            self._log_before = 0
            self.assertIn("already used", self.vantro.status()["shortcut_failure"])
        self.wait(lambda: not self.vantro.status().get("shortcut_failure"), 20, "the shortcut to work")
        self.assertEqual(self.news().count("Error registering hotkey"), 1)
        self.assertNotIn("Shortcut Not Available", self.news())
        self.check_next_dictation()


class LostDisplayTest(DictationCase):
    def test_a_program_whose_display_goes_ends_and_lets_go_of_the_microphone(self):
        self.vantro.quit()
        server = self.desktop.start("Xvfb", "-displayfd", "1", "-screen", "0", "800x600x24", "-nolisten", "tcp")
        number = self.wait(lambda: re.search(r"^(\d+)$", server.log.read_text(), re.MULTILINE), 10, "another X server")
        self.vantro.start(env={"DISPLAY": f":{number[1]}"})
        self.assertEqual(self.vantro.run("start").returncode, 0)
        self.wait(self.desktop.audio.recording_sources, 10, "the recording")
        server.kill()
        self.assertTrue(poll_until(lambda: not self.vantro.process.running, 10), "the program lives on without a display")
        self.assertEqual(self.vantro.process.exit_code, 1, self.vantro.log()[-500:])
        self.assertEqual(self.desktop.audio.recording_sources(), [])
        self.assertFalse(self.desktop.bus_name_owned("com.vantro.app"))
        self.vantro.start()
        self._log_before = 0
        self.check_next_dictation()


if __name__ == "__main__":
    unittest.TestCase.maxDiff = None
    main()
