"""A user who dictates known words and accounts for each text: where it is, and that it is nowhere else.

    user = DictatingUser(desktop, program)
    user.begin(speech)
    user.record()
    user.stop()
    user.wait_for_text()
    user.settle(Found("window"))
"""

import json
import re
from dataclasses import dataclass
from difflib import SequenceMatcher
from pathlib import Path

from desktop import DesktopError
from program import poll_until
from vantro import HUD_TITLE, SHORTCUT, STOP_KEY, Vantro

ROOT = Path(__file__).resolve().parent.parent.parent
# Nothing is fetched from the network.
ARGUMENTS = ("--shortcut", SHORTCUT, "--model-host", "http://127.0.0.1:9")
COPIED = "what was copied before"
TEXT_S = 120
ELSEWHERE = (900, 300)  # a point of the other window
ALIKE = 0.75
MOST_ESCAPES = 4


class Misplaced(DesktopError):
    """A text is missing, twice, or where it does not belong."""


@dataclass(frozen=True)
class Speech:
    """What is said: recordings, played one after another, and their words."""

    recordings: tuple
    words: tuple
    duration_s: float

    def __add__(self, other):
        return Speech(self.recordings + other.recordings, self.words + other.words, self.duration_s + other.duration_s)


CHILD = Speech((ROOT / "tests/data/en-harvard-spk1-snt1.flac",),
               tuple("the child almost hurt the small dog".split()), 2.87)
TABLE = Speech((ROOT / "tests/data/en-arctic-a0009.flac",),
               tuple("he turned sharply and faced gregson across the table".split()), 3.10)
# Neighbours differ, so that a text which comes again or too late is seen.
SPEECHES = (CHILD, TABLE, CHILD + TABLE, TABLE, CHILD, TABLE + CHILD)


@dataclass(frozen=True)
class Found:
    """Where a text is: in the "window", on the "clipboard", or in the answer of "retry".

    clipboard   what the clipboard holds in the end, if not what follows from that
    words       if not all that was said
    is_stored   whether it is in the history
    """

    place: str
    clipboard: str = None
    words: tuple = None
    is_stored: bool = True


def words(text):
    return tuple(re.findall(r"[a-z']+", (text or "").lower()))


def is_same(heard, said):
    """Whether these are the words. The recogniser may hear one of them otherwise; half a text, two texts, or those of
    another speech are something else."""
    return SequenceMatcher(None, heard, said).ratio() >= ALIKE or heard == said


class DictatingUser:
    """editor gets the texts, other is a terminal that must get none."""

    def __init__(self, desktop, program):
        self.desktop = desktop
        self.vantro = Vantro(desktop, program)
        self.vantro.install_model()
        self.vantro.configure(playSoundOnComplete=True)
        self.editor = desktop.open_editor()
        self.other = desktop.open_xterm()
        for window, x in ((self.editor.window, 0), (self.other.window, 700)):
            desktop.run("xdotool", "windowsize", window.id, 500, 400, "windowmove", window.id, x, 0)
        desktop.set_clipboard(COPIED)
        self.stored = 0
        self.delivered = ""  # all that has come into the editor
        self.lives = 0
        self.start()

    # --- the program

    def start(self, env=None):
        self.vantro.start(*ARGUMENTS, env=env)
        self.lives += 1

    def start_after_end(self):
        """Starts it after it has ended in the middle, and puts its questions aside; what it keeps stays kept."""
        self.start()
        self.wait(self.vantro.alerts, 20, "the offer of the kept recording")
        self.close_alerts()

    def start_over(self):
        """Whatever has happened: a running program, nothing owed, windows as they are."""
        self.vantro.process.kill()
        for name in self.desktop.display.keys_held():
            self.desktop.display.key_code(name, False)
        self.start()
        self.close_alerts()
        self.vantro.run("retry", "--discard")
        self.desktop.activate(self.editor.window)
        self.desktop.set_clipboard(COPIED)
        self.delivered = self.editor.text()
        self.stored = self.history_size()

    def history_size(self):
        return len(json.loads(self.vantro.run("history", "list", "--limit", "0", "--json").stdout))

    # --- steps of a dictation

    def wait(self, predicate, timeout_s, what):
        return self.desktop.wait_until(predicate, timeout_s, what)

    def begin(self, speech):
        self.wait(lambda: not self.vantro.window(HUD_TITLE), 30, "the former notice to go")
        self.speech = speech
        if is_same(words(self.desktop.clipboard()), speech.words):  # left there earlier
            self.desktop.set_clipboard(COPIED)
        self.former = self.desktop.clipboard()
        self.typed_elsewhere = self.other.text()
        self.desktop.activate(self.editor.window)

    def record(self):
        """From the shortcut to the last word."""
        self.vantro.open_launcher()
        self.speak()

    def speak(self):
        for recording in self.speech.recordings:
            self.desktop.audio.play(recording)

    def stop(self):
        self.desktop.press(STOP_KEY)

    def click_elsewhere(self):
        self.desktop.run("xdotool", "mousemove", *ELSEWHERE, "click", 1)

    def arrived(self):
        return words(self.editor.text()[len(self.delivered):])

    def wait_for_text(self):
        self.wait(self.editor.changed, TEXT_S, "the text")

    def wait_until_over(self):
        self.wait(lambda: self.vantro.status()["state"] == "idle" and not self.vantro.launcher(), TEXT_S,
                  "the end of the dictation")

    def told(self):
        """Whether the user sees a word of the program."""
        return bool(self.vantro.window(HUD_TITLE) or self.vantro.alerts())

    def wait_for_word(self):
        self.wait(self.told, TEXT_S, "a word to the user")

    def retry(self):
        """The words of what is kept."""
        result = self.vantro.run("retry", timeout_s=TEXT_S)
        if result.returncode != 0:
            raise self.misplaced(f"vantro retry ended with {result.returncode}: {result.stderr.strip()}")
        return words(result.stdout)

    def expect_from_retry(self):
        said = self.retry()
        if not is_same(said, self.speech.words):
            raise self.misplaced(f"vantro retry brought \"{' '.join(said)}\"")
        return Found("retry")

    def wherever_it_is(self):
        """Looks where a user looks whose dictation may have been cut short."""
        self.wait_until_over()
        self.wait(lambda: self.editor.changed() or self.told(), 30, "the text or a word to the user")
        if self.editor.changed():
            return Found("window")
        if is_same(words(self.desktop.clipboard()), self.speech.words):
            return Found("clipboard")
        return self.expect_from_retry()

    def close_alerts(self):
        """Escape ends the download that a window shows, and then the window. A window that has just got the keyboard takes
        no key."""
        for alert in self.vantro.alerts():
            for _ in range(MOST_ESCAPES):
                if not self.is_open(alert):
                    break
                self.desktop.activate(alert)
                self.desktop.press("Escape")
                poll_until(lambda: not self.is_open(alert), 2)
            else:
                raise self.desktop.failure(f"the window {alert.title} does not close")

    def is_open(self, alert):
        return alert.id in [window.id for window in self.vantro.alerts()]

    # --- the account

    def settle(self, found):
        """Checks that the text is where it was found, and nowhere else."""
        self.wait_until_over()
        self.close_alerts()
        self._check_windows(found)
        self._check_clipboard(found)
        kept = self.vantro.run("retry")
        if kept.returncode != 3:
            raise self.misplaced(f"it is kept as well: \"{kept.stdout.strip()}\"")
        if held := self.desktop.display.keys_held():
            raise self.misplaced(f"the keys {held} are held down")
        self.stored += found.is_stored

    def check_account(self):
        """What the editor and the history hold in the end is what has been counted."""
        if self.editor.text() != self.delivered:
            raise self.misplaced("the editor has another text in the end")
        if (size := self.history_size()) != self.stored:
            raise self.misplaced(f"the history has {size} texts, and {self.stored} were dictated")

    def _check_windows(self, found):
        expected = self.speech.words if found.place == "window" else ()
        arrived = self.arrived()
        self.delivered = self.editor.text()
        if not is_same(arrived, expected):
            raise self.misplaced(f"the editor got \"{' '.join(arrived)}\"")
        if self.other.text() != self.typed_elsewhere:
            raise self.misplaced("the other window got something")

    def _check_clipboard(self, found):
        if found.clipboard is not None:
            expected = words(found.clipboard)
        elif found.place in ("clipboard", "retry"):
            expected = found.words or self.speech.words
        else:
            expected = words(self.former)
        if not poll_until(lambda: is_same(words(self.desktop.clipboard()), expected), 10):
            raise self.misplaced(f"the clipboard holds \"{self.desktop.clipboard()}\"")

    def misplaced(self, what):
        return Misplaced(f"said \"{' '.join(self.speech.words)}\": {what}\n{self.vantro.process.log_tail(30)}")
