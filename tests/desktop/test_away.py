#!/usr/bin/python3
"""The user locks the screen, closes the lid or goes to another session in the middle of a dictation."""

import importlib.util
import shutil
import unittest

from dictationcase import CHILD, CHILD_WORDS, HUD_TITLE, SHORTCUT_KEYS, DictationCase, main, words
from program import DesktopError

LOGIND = "org.freedesktop.login1"
MANAGER = "/org/freedesktop/login1"
SESSION = "/org/freedesktop/login1/session/c1"
SAVER = "org.gnome.ScreenSaver"
SAVER_PATH = "/org/gnome/ScreenSaver"
MOCK = "org.freedesktop.DBus.Mock"


class AwayCase(DictationCase):
    def hud(self):
        return self.vantro.window(HUD_TITLE)

    def begin(self):
        self.wait(lambda: not self.hud(), 20, "the former display to go")
        self.vantro.open_launcher()
        self.speak(CHILD)

    def check_kept(self):
        """The dictation has ended, and its text has gone nowhere but to the clipboard and the history."""
        self.wait_until_over()
        self.assertEqual(self.arrived(), "")
        self.assertEqual(words(self.desktop.clipboard()), CHILD_WORDS)
        self.assertEqual(words(self.vantro.run("history", "list").stdout.splitlines()[0].split("\t")[-1]), CHILD_WORDS)
        self.assertNotIn("Attempting to paste", self.news(), "keys were pressed in the locker")
        self.assertIsNone(self.hud(), "shown to a locked screen")

    def check_told(self):
        self.wait(self.hud, 10, "the display that says where the text is")
        self.wait(lambda: not self.hud(), 20, "the display to go")

    def check_nothing_begins(self):
        self.desktop.press(SHORTCUT_KEYS)
        refusal = self.vantro.run("start")
        self.assertNotEqual(refusal.returncode, 0)
        self.assertIn("locked", refusal.stderr)
        self.assertEqual(self.vantro.status()["state"], "idle")
        self.assertEqual(self.desktop.audio.recording_sources(), [])


@unittest.skipUnless(importlib.util.find_spec("dbusmock"), "python3-dbusmock is not installed")
class DesktopLockerTest(AwayCase):
    """Lockers and logind, as the program knows them from the buses."""

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        path = cls.desktop.runtime_folder / "system-bus"
        cls.desktop.env |= {"DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={path}", "XDG_SESSION_ID": "c1"}
        cls.desktop.start_service("dbus-daemon", "--session", "--nofork", "--nopidfile",
                                  f"--address=unix:path={path}")
        cls.desktop.wait_until(path.exists, 10, "the system bus")
        cls.desktop.start_service("/usr/bin/python3", "-m", "dbusmock", "--template", "logind")
        cls.desktop.wait_until(lambda: cls.answers(cls.logind, MANAGER), 10, "logind")
        cls.logind(MANAGER, f"{MOCK}.AddSession", "c1", "seat0", "1000", "user", "true")

    @classmethod
    def logind(cls, path, method, *arguments):
        return cls.desktop.run("gdbus", "call", "--address", cls.desktop.env["DBUS_SYSTEM_BUS_ADDRESS"], "--dest",
                               LOGIND, "--object-path", path, "--method", method, *arguments)

    @staticmethod
    def answers(call, path):
        try:
            return call(path, "org.freedesktop.DBus.Peer.Ping")
        except DesktopError:
            return False

    def set_session(self, **properties):
        values = ", ".join(f"'{name}': <{str(value).lower()}>" for name, value in properties.items())
        self.logind(SESSION, f"{MOCK}.UpdateProperties", f"{LOGIND}.Session", f"{{{values}}}")

    def set_asleep(self, asleep):
        self.logind(MANAGER, f"{MOCK}.EmitSignal", f"{LOGIND}.Manager", "PrepareForSleep", "b",
                    f"[<{str(asleep).lower()}>]")

    def inhibitors(self):
        return self.logind(MANAGER, f"{LOGIND}.Manager.ListInhibitors").count("vantro")

    def set_saver(self, active):
        self.desktop.call_bus(SAVER, SAVER_PATH, f"{SAVER}.SetActive", str(active).lower())

    def start_saver(self):
        saver = self.desktop.start("/usr/bin/python3", "-m", "dbusmock", "--template", "gnome_screensaver")
        self.addCleanup(saver.stop)
        self.wait(lambda: self.desktop.bus_name_owned(SAVER), 10, "the screen saver")
        return saver

    def test_a_locked_screen_ends_the_dictation_and_keeps_the_text_out_of_every_window(self):
        saver = self.start_saver()
        for unlock in (lambda: self.set_saver(False), saver.kill):
            self.desktop.set_clipboard("")
            self.begin()
            self.set_saver(True)
            self.check_kept()
            self.check_nothing_begins()
            unlock()
            self.check_told()
        self.check_next_dictation()

    def test_a_session_that_is_locked_or_not_in_front_ends_the_dictation(self):
        for away, back in (({"LockedHint": True}, {"LockedHint": False}), ({"Active": False}, {"Active": True})):
            with self.subTest(away):
                self.desktop.set_clipboard("")
                self.begin()
                self.set_session(**away)
                self.check_kept()
                self.check_nothing_begins()
                self.set_session(**back)
                self.check_told()
        self.check_next_dictation()

    def test_a_request_to_lock_is_enough(self):
        self.begin()
        self.logind(SESSION, f"{MOCK}.EmitSignal", f"{LOGIND}.Session", "Lock", "", "[]")
        self.set_session(LockedHint=True)
        self.check_kept()
        self.logind(SESSION, f"{MOCK}.EmitSignal", f"{LOGIND}.Session", "Unlock", "", "[]")
        self.check_told()

    def test_sleep_waits_for_the_last_words(self):
        self.assertEqual(self.inhibitors(), 0)
        self.begin()
        self.wait(self.inhibitors, 5, "the delay of sleep")
        self.set_asleep(True)
        self.wait(lambda: not self.inhibitors(), 10, "the machine to be allowed to sleep")
        self.check_kept()
        self.set_asleep(False)
        self.check_told()
        self.check_next_dictation()
        self.assertEqual(self.inhibitors(), 0)


@unittest.skipUnless(shutil.which("i3lock"), "i3lock is not installed")
class PlainLockerTest(AwayCase):
    """A locker that tells nobody: it has the keyboard to itself. There are no buses for it to be seen on."""

    def test_a_locker_gets_no_text(self):
        self.begin()
        locker = self.desktop.start("i3lock", "--nofork")
        self.addCleanup(locker.stop)
        self.wait(self.desktop.display.keyboard_taken, 5, "the locked screen")
        self.assertEqual(self.vantro.run("stop").returncode, 0)
        self.check_kept()
        locker.kill()
        self.check_told()
        self.check_next_dictation()


if __name__ == "__main__":
    main()
