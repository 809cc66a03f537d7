#!/usr/bin/python3
"""The program around the dictations: its windows, its first start, its end, and desktops that lack something."""

import http.server
import json
import shutil
import signal
import threading
import unittest
from pathlib import Path

from dictationcase import CANCEL_KEY, CHILD, CHILD_WORDS, SHORTCUT_KEYS, STOP_KEY, DictationCase, main, words

PAGES = ("General", "Shortcut", "Microphone", "Models", "Modes", "Providers", "Vocabulary", "About")
SETTINGS_TITLE = "vantro settings"
ONBOARDING_TITLE = "Welcome to vantro"


class ShellCase(DictationCase):
    def window(self, title):
        return self.wait(lambda: self.vantro.window(title), 10, f"the window {title}")

    def has_keyboard(self, window):
        self.wait(lambda: self.desktop.display.active_window() == window.id, 5, f"{window.title} to have the keyboard")

    def close(self, title):
        self.desktop.activate(self.window(title))
        self.desktop.press("Escape")
        self.wait(lambda: not self.vantro.window(title), 5, f"{title} to close")

    def start_again(self):
        """What a user does who does not know that it runs."""
        self.assertEqual(self.vantro.run().returncode, 0)


class WindowsTest(ShellCase):
    def test_a_second_start_opens_the_settings_and_a_dictation_puts_them_aside(self):
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        self.desktop.activate(self.editor.window)
        self.vantro.open_launcher()
        self.assertIsNone(self.vantro.window(SETTINGS_TITLE))
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.window(SETTINGS_TITLE)
        self.assertEqual(self.desktop.display.active_window(), self.editor.window.id)

        self.desktop.press(SHORTCUT_KEYS)
        self.vantro.wait_for_launcher()
        self.desktop.press(CANCEL_KEY)
        self.window(SETTINGS_TITLE)
        self.close(SETTINGS_TITLE)

    def test_settings_are_changed_by_the_keyboard_and_kept(self):
        self.start_again()
        settings = self.window(SETTINGS_TITLE)
        self.has_keyboard(settings)
        ini = self.desktop.config_home / "vantro" / "vantro.ini"
        for _ in PAGES:  # their names come first
            self.desktop.press("Tab")
        self.desktop.press("space")
        self.wait(lambda: "autoPasteEnabled=false" in ini.read_text(), 5, "the setting in the file")
        self.desktop.press("space")
        self.wait(lambda: "autoPasteEnabled=true" in ini.read_text(), 5, "the setting in the file")
        self.close(SETTINGS_TITLE)

    def test_a_replacement_made_in_the_settings_acts_on_the_next_dictation(self):
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        for _ in range(PAGES.index("Vocabulary")):
            self.desktop.press("Tab")
        self.desktop.press("space")
        for _ in range(len(PAGES) - PAGES.index("Vocabulary")):
            self.desktop.press("Tab")
        for text in ("small dog", "enormous cat"):
            self.desktop.type_text(text)
            self.desktop.press("Return")
        listed = self.wait(lambda: json.loads(self.vantro.run("replacements", "list", "--json").stdout), 5, "the list")
        self.addCleanup(self.vantro.run, "replacements", "remove", "small dog")
        self.assertEqual([(entry["find"], entry["replace"]) for entry in listed], [("small dog", "enormous cat")])
        self.close(SETTINGS_TITLE)
        self.desktop.activate(self.editor.window)
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), "the child almost hurt the enormous cat".split())


class FirstStartTest(ShellCase):
    def test_onboarding_leads_to_a_dictation(self):
        self.vantro.quit()
        shutil.rmtree(self.desktop.config_home / "vantro", ignore_errors=True)
        self.vantro.start("--verbose")
        self._log_before = 0
        onboarding = self.window(ONBOARDING_TITLE)
        self.has_keyboard(onboarding)
        self.wait(self.desktop.audio.recording_sources, 5, "the microphone to be tried")
        self.speak(CHILD)
        self.desktop.press("Return")
        self.wait(lambda: not self.desktop.audio.recording_sources(), 5, "the microphone to be closed")
        self.wait(lambda: "keystroke arrived" in self.news(), 10, "the keystroke")
        self.desktop.press("Return")
        shortcut = self.wait(lambda: self.vantro.status()["shortcut"], 5, "a proposed shortcut")
        self.desktop.press("Return")
        self.desktop.press("Return")
        # The practice: its text comes into the window itself.
        self.desktop.press(shortcut.lower())
        self.vantro.wait_for_launcher()
        self.assertTrue(self.vantro.window(ONBOARDING_TITLE))
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.wait(lambda: "Attempting to paste" in self.news(), 60, "the paste")
        self.wait_until_over()
        self.has_keyboard(onboarding)
        self.close(ONBOARDING_TITLE)
        self.restart()
        self.assertIsNone(self.vantro.window(ONBOARDING_TITLE), "shown again although nothing is missing")


class UpdateTest(ShellCase):
    def serve(self, manifest):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                body = json.dumps(manifest).encode()
                self.send_response(200)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *arguments):
                pass

        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        self.desktop.env["VANTRO_UPDATE_MANIFEST"] = f"http://127.0.0.1:{server.server_port}/"
        self.addCleanup(self.desktop.env.pop, "VANTRO_UPDATE_MANIFEST")

    def test_a_newer_version_is_offered_at_the_start_until_it_is_skipped(self):
        self.serve({"version": "999.1", "url": "https://example.invalid/", "notes": "Hears better."})
        self.restart(checkForUpdatesOnLaunch=True)
        alert = self.wait_for_alert_saying("vantro 999.1 is available")
        self.has_keyboard(alert)
        self.desktop.press("Tab")
        self.desktop.press("space")
        self.wait(lambda: not self.vantro.alerts(), 5, "the alert to close")
        ini = self.desktop.config_home / "vantro" / "vantro.ini"
        self.wait(lambda: "skippedUpdateVersion=999.1" in ini.read_text(), 5, "the skipped version")


class SettingsFileTest(ShellCase):
    def test_a_damaged_file_is_kept_and_the_user_is_told(self):
        ini = self.desktop.config_home / "vantro" / "vantro.ini"
        self.vantro.quit()
        damaged = "[General]\nautoPasteEnabled=false\nselectedMod"
        ini.write_text(damaged)
        self.vantro.start()
        self._log_before = 0
        self.dismiss_alert_saying("vantro starts with fresh settings")
        self.assertEqual((ini.parent / "vantro.ini.damaged").read_text(), damaged)
        self.check_next_dictation()


class SoundTest(ShellCase):
    def test_a_finished_dictation_is_heard_when_the_user_wants_it(self):
        self.restart(playSoundOnComplete=True)
        self.vantro.open_launcher()
        self.speak(CHILD)
        # The sound is over sooner than one could look for it: have the server tell.
        events = self.desktop.start("pactl", "subscribe")
        self.addCleanup(events.stop)
        self.vantro.end_dictation()
        self.wait(lambda: "'new' on sink-input" in events.log.read_text(), 60, "the sound")
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.restart()


class GermanTest(ShellCase):
    def test_windows_speak_the_sessions_language(self):
        self.vantro.quit()
        self.vantro.start(env={"LANG": "de_DE.UTF-8", "LANGUAGE": "de", "LC_ALL": ""})
        self.start_again()
        self.close("vantro – Einstellungen")
        self.restart()


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


class PoorDesktopTest(ShellCase):
    """Something that every desktop has is missing. The program says so, or does without."""

    def test_without_a_display_it_ends_with_a_message(self):
        result = self.vantro.run(env={"DISPLAY": ":99999"})
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("display", result.stderr)

    def test_without_a_journal_the_logs_command_says_so(self):
        if Path("/run/systemd/journal/socket").exists():
            self.skipTest("this system has a journal")
        result = self.vantro.run("logs")
        self.assertEqual(result.returncode, 4)
        self.assertIn("no journal", result.stderr)

    def test_without_a_session_bus_it_dictates(self):
        self.vantro.quit()
        process = self.desktop.start(self.vantro.program, "--shortcut", "Ctrl+Alt+D",
                                     env={"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"})
        self.wait(lambda: "is downloaded" in process.log.read_text(), 20, "the start")
        self.desktop.activate(self.editor.window)
        self.vantro.open_launcher()
        self.speak(CHILD)
        self.desktop.press(STOP_KEY)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.assertEqual(process.stop(), 0)
        self.vantro.start()

    def test_with_a_home_that_cannot_be_written_to_it_dictates(self):
        self.vantro.quit()
        read_only = {"XDG_CONFIG_HOME": "/proc/config", "XDG_STATE_HOME": "/proc/state"}
        self.vantro.start(env=read_only)
        self._log_before = 0
        self.check_next_dictation()
        self.restart()


if __name__ == "__main__":
    main()
