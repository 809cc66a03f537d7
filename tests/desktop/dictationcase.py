"""The frame of the tests that try the built program on a virtual desktop.

VANTRO_PROGRAM names the program; without it the newest build of this checkout is tried. VANTRO_PICTURES names a
folder in which the screen of a failed test is kept.
"""

import os
import re
import shutil
import sys
import time
import unittest
from contextlib import contextmanager
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "scripts" / "lib"))

from desktop import VirtualDesktop  # noqa: E402
from program import DesktopError, poll_until  # noqa: E402
from vantro import CANCEL_KEY, HUD_TITLE, SHORTCUT_KEYS, STOP_KEY, Vantro  # noqa: E402, F401

# What is said in it, as words; the first and the last are spoken at the very edges of the first recording.
CHILD = ROOT / "tests/data/en-harvard-spk1-snt1.flac"
CHILD_WORDS = "the child almost hurt the small dog".split()
CARDS = ROOT / "tests/data/en-cards-005.flac"
TABLE = ROOT / "tests/data/en-arctic-a0009.flac"
TABLE_WORDS = "he turned sharply and faced gregson across the table".split()

FORMER = "what was copied before"

SKIPPED = 77
REST_S = 1.2  # the keyboard's, before a window that came up by itself takes keys
TRIES = 5


def program_under_test():
    named = os.environ.get("VANTRO_PROGRAM")
    candidates = [Path(named)] if named else [ROOT / "build" / preset / "bin/vantro" for preset in ("release", "dev")]
    return next((path for path in candidates if os.access(path, os.X_OK)), None)


def words(text):
    return re.findall(r"[a-z']+", text.lower())


class DictationCase(unittest.TestCase):
    """One desktop and one program for all tests of a class. Every test must leave both unharmed."""

    NEEDED = ("Xvfb", "openbox", "xcompmgr", "dbus-daemon", "gdbus", "gnome-keyring-daemon", "pulseaudio", "pactl",
              "paplay", "mousepad", "xterm", "xclip", "xdotool")
    TYPED = "x "  # by the keys x and space

    @classmethod
    def setUpClass(cls):
        program = program_under_test()
        if program is None:
            raise unittest.SkipTest("there is no built program; VANTRO_PROGRAM can name one")
        missing = [name for name in cls.NEEDED if not shutil.which(name)]
        if missing:
            raise unittest.SkipTest(f"not installed: {', '.join(missing)}")
        cls.desktop = cls.enterClassContext(cls.make_desktop())
        cls.vantro = cls.make_vantro(program)
        cls.prepare_profile()
        cls.editor = cls.desktop.open_editor()
        cls.vantro.start()

    @classmethod
    def make_desktop(cls):
        return VirtualDesktop()

    @classmethod
    def make_vantro(cls, program):
        return Vantro(cls.desktop, program)

    @classmethod
    def prepare_profile(cls):
        cls.vantro.install_model()

    def setUp(self):
        self.desktop.activate(self.editor.window)
        self.desktop.set_clipboard(FORMER)
        self._before = self.editor.text()
        self._log_before = len(self.vantro.log())

    def run(self, result=None):
        failures = len(result.failures) + len(result.errors) if result else 0
        super().run(result)
        pictures = os.environ.get("VANTRO_PICTURES")
        if result and pictures and len(result.failures) + len(result.errors) > failures:
            self.desktop.screenshot(Path(pictures) / f"{self._testMethodName}.png")

    def tearDown(self):
        """Whatever happened: the program is idle, no key is down, and the keyboard belongs to the user again."""
        self.wait(lambda: self.vantro.status()["state"] == "idle", 10, "the program to be idle")
        self.wait(lambda: not self.vantro.launcher(), 5, "the launcher to be gone")
        self.assertEqual(self.desktop.display.keys_held(), [])
        self.assertEqual(self.vantro.alerts(), [], "a window of the program is left on the screen")
        self.assertNotIn("qrc:/", self.news(), "a window's QML complains")
        self.assertNotRegex(self.news(), r"Sanitizer: |runtime error: ", "a sanitizer complains")
        self.desktop.activate(self.editor.window)
        before = self.editor.text()
        self.desktop.press("x")
        self.desktop.press("space")
        self.wait(lambda: self.editor.text() == before + self.TYPED, 5, "typed keys to arrive in the editor")

    # --- steps

    def wait(self, predicate, timeout_s, what):
        return self.desktop.wait_until(predicate, timeout_s, what)

    def restart(self, **settings):
        """Starts the program anew with these settings."""
        self.vantro.quit()
        self.vantro.configure(**settings)
        self.vantro.start()
        self._log_before = 0

    def news(self):
        """What the program has logged since the test began."""
        return self.vantro.log()[self._log_before:]

    def arrived(self):
        """What has come into the editor since the test began."""
        return self.editor.text()[len(self._before):]

    def speak(self, recording):
        self.desktop.audio.play(recording)

    def dictate(self, recording):
        """A whole dictation up to the stop."""
        self.vantro.open_launcher()
        self.speak(recording)
        self.vantro.end_dictation()

    def wait_for_text(self):
        """The text that the dictation brings into the editor."""
        text = self.wait(self.arrived, 60, "text in the editor")
        self.vantro.wait_until_closed()
        return text

    def wait_until_over(self, timeout_s=60):
        self.wait(lambda: self.vantro.status()["state"] == "idle" and not self.vantro.launcher(), timeout_s,
                  "the end of the dictation")

    def check_next_dictation(self):
        """The program works as if nothing had happened."""
        self.vantro.run("retry", "--discard")  # or the shortcut would take a cancel back
        before = self.editor.text()
        self.dictate(CHILD)
        self.wait(lambda: words(self.editor.text()[len(before):]) == CHILD_WORDS, 60, "the next dictation's text")
        self.wait_until_over()

    def wait_for_alert_saying(self, text):
        """An alert on the screen; what it says is also in the log, where a test can read it."""
        alert = self.wait(lambda: next(iter(self.vantro.alerts()), None), 20, f"an alert saying {text}")
        said = [line for line in self.news().splitlines() if line.startswith("vantro[Alert]")]
        self.assertIn(text, said[-1])
        return alert

    def dismiss_alert_saying(self, text):
        self.close_alert(self.wait_for_alert_saying(text))

    def close_alert(self, alert):
        self.answer(alert, "Escape")
        self.wait_until_gone(alert)

    def wait_until_gone(self, alert):
        self.wait(lambda: not self.vantro.alerts(), 5, "the alert to close")
        # The window manager hands the keyboard on some time after the window is gone.
        self.wait(lambda: self.desktop.display.active_window() not in (0, alert.id), 5, "another window's turn")

    def answer(self, alert, *keys):
        """Presses keys in an alert, once more where it came up too slowly for them to count."""
        self.desktop.activate(alert)
        for _ in range(TRIES):
            time.sleep(REST_S)
            for key in keys:
                self.desktop.press(key)
            if poll_until(lambda: alert.id not in [window.id for window in self.vantro.alerts()], 2):
                return
        self.fail(f"{alert.title} does not close")

    @contextmanager
    def delivers_nothing(self):
        """Neither the editor nor the clipboard changes while the context lasts."""
        text, clipboard = self.editor.text(), self.desktop.clipboard()
        yield
        self.assertEqual(self.editor.text(), text)
        self.assertEqual(self.desktop.clipboard(), clipboard)


def main():
    result = unittest.main(exit=False, verbosity=2, module="__main__").result
    for test, reason in result.skipped:
        print(f"skipped: {test}: {reason}")
    if not result.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if result.skipped else 0)
