#!/usr/bin/python3
"""Dictations on a Wayland desktop, the sway compositor: by its own binding, into its own programs."""

import os
import signal
import sys

from dictationcase import CHILD, CHILD_WORDS, FORMER, ROOT, DictationCase, main, program_under_test, words

sys.path.insert(0, str(ROOT / "scripts" / "lib"))

import swaydesktop  # noqa: E402
import waylanddesktop  # noqa: E402
from program import poll_until  # noqa: E402
from swaydesktop import SwayDesktop, SwayVantro  # noqa: E402

HOLD_KEYS = "ctrl+alt+a"
SECRET_HINT = "x-kde-passwordManagerHint"


class SwayCase(DictationCase):
    NEEDED = (*waylanddesktop.NEEDED, *swaydesktop.NEEDED, "swaylock")
    LAYOUT = "us"

    @classmethod
    def make_desktop(cls):
        program = program_under_test()
        return SwayDesktop((f"bindsym --to-code Ctrl+Alt+d exec {program} toggle",
                            f"bindsym --to-code --no-repeat Ctrl+Alt+a exec {program} start",
                            f"bindsym --to-code --release Ctrl+Alt+a exec {program} stop"), cls.LAYOUT)

    @classmethod
    def make_vantro(cls, program):
        return SwayVantro(cls.desktop, program)

    def wait_for_clipboard(self, text):
        self.wait(lambda: self.desktop.clipboard() == text, 10, f"{text} on the clipboard")

    def wait_for_words_on_clipboard(self):
        self.wait(lambda: words(self.desktop.clipboard() or "") == CHILD_WORDS, 60, "the text on the clipboard")


class SwayDictationTest(SwayCase):
    def test_words_arrive_in_the_window_and_the_clipboard_comes_back(self):
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_for_clipboard(FORMER)
        status = self.vantro.status()
        self.assertEqual((status["clipboard_by"], status["paste_by"], status["panel_by"], status["missing"]),
                         ("data-control", "virtual-keyboard", "layer-shell", []))

    def test_text_arrives_in_a_terminal(self):
        terminal = self.desktop.open_terminal()
        self.addCleanup(terminal.program.stop)
        self.dictate(CHILD)
        self.wait(terminal.changed, 60, "text in the terminal")
        self.assertEqual(words(terminal.text()), CHILD_WORDS)
        self.wait_for_clipboard(FORMER)

    def test_a_binding_on_press_and_release_records_while_it_is_held(self):
        self.desktop.display.chord_down(HOLD_KEYS)
        self.vantro.wait_for_launcher()
        self.speak(CHILD)
        self.desktop.display.chord_up(HOLD_KEYS)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)

    def test_escape_cancels_and_digits_choose_a_mode_without_reaching_the_window_behind(self):
        with self.delivers_nothing():
            self.vantro.open_launcher()
            self.desktop.press("2")
            self.wait(lambda: self.vantro.status()["mode"] == "Notes", 5, "the mode")
            self.desktop.press("1")
            self.wait(lambda: self.vantro.status()["mode"] == "Normal", 5, "the mode")
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
        self.wait_for_words_on_clipboard()
        self.wait(self.vantro.notice, 10, "the notice that there is text to be pasted")
        self.wait_until_over()
        self.assertEqual(self.arrived(), "", "the text came into another window")
        self.wait(lambda: not self.desktop.panel_shown(), 20, "the notice to go")

    def test_a_locker_gets_no_text_and_shows_none(self):
        self.vantro.open_launcher()
        self.speak(CHILD)
        locker = self.desktop.start("swaylock", "--color", "000000")
        self.wait(lambda: self.desktop.pixels(0, 0, 1, 1) == bytes(3), 10, "the locked screen")
        self.vantro.run("stop")
        self.wait_for_words_on_clipboard()
        self.wait(lambda: self.vantro.status()["state"] == "idle", 10, "the end of the dictation")
        self.assertNotIn("Attempting to paste", self.news())
        self.assertEqual(set(self.desktop.panel_pixels()), {0}, "the display is above the locker")
        locker.stop()
        self.wait(self.vantro.notice, 10, "the notice for who is back")
        self.wait(lambda: not self.desktop.panel_shown(), 20, "the notice to go")
        self.assertEqual(self.arrived(), "")

    def test_a_busy_target_pastes_when_it_responds(self):
        self.vantro.open_launcher()
        self.speak(CHILD)
        os.kill(self.editor.program.pid, signal.SIGSTOP)
        try:
            self.vantro.end_dictation()
            self.wait(self.vantro.notice, 60, "the notice that the window has not taken the text")
            self.assertEqual(words(self.desktop.clipboard()), CHILD_WORDS)
        finally:
            os.kill(self.editor.program.pid, signal.SIGCONT)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_for_clipboard(FORMER)
        self.wait(lambda: not self.desktop.panel_shown(), 20, "the notice to go")

    def test_a_clipboard_history_is_given_the_hint_of_passwords(self):
        seen = self.desktop.home / "seen.txt"
        history = self.desktop.start("wl-paste", "--watch", "sh", "-c", f"wl-paste --list-types >>{seen}")
        self.addCleanup(history.stop)
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_for_clipboard(FORMER)
        self.wait(lambda: SECRET_HINT in seen.read_text(), 10, "the hint")


class LostCompositorTest(SwayCase):
    def test_what_was_said_until_the_compositor_went_becomes_text_later(self):
        self.vantro.quit()
        compositor = self.desktop.start("sway", "--config", self.desktop.folder / "sway.conf")
        socket = self.wait(lambda: next((path.name for path in self.desktop.runtime_folder.glob("wayland-?")
                                         if path.name != self.desktop.env["WAYLAND_DISPLAY"]), None), 20,
                           "another compositor")
        self.vantro.start(env={"WAYLAND_DISPLAY": socket})
        self.assertEqual(self.vantro.run("start").returncode, 0)
        self.wait(self.desktop.audio.recording_sources, 10, "the recording")
        self.speak(CHILD)
        compositor.kill()
        self.assertTrue(poll_until(lambda: not self.vantro.process.running, 10), "the program lives on")
        self.assertEqual(self.desktop.audio.recording_sources(), [])
        self.vantro.start()
        self._log_before = 0
        self.answer(self.wait_for_alert_saying("became text"), "space")
        self.wait_for_words_on_clipboard()
        self.wait_until_over()


class OtherLayoutTest(SwayCase):
    """A layout without a V, and a modifier that is held while the text comes."""

    LAYOUT = "ru"
    TYPED = "\u0447 "

    def test_text_arrives(self):
        self.dictate(CHILD)
        self.desktop.display.key("shift", True)
        try:
            self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        finally:
            self.desktop.display.key("shift", False)


if __name__ == "__main__":
    waylanddesktop.run_as_user()
    main()
