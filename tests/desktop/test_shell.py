#!/usr/bin/python3
"""The program around the dictations: its windows, its first start, its settings, its sounds."""

import json
import shutil
import sys
import time

from dictationcase import CANCEL_KEY, CHILD, CHILD_WORDS, ROOT, SHORTCUT_KEYS, STOP_KEY, main, words
from shellcase import ONBOARDING_TITLE, SETTINGS_TITLE, ShellCase

sys.path.insert(0, str(ROOT / "tests" / "ai" / "services"))
from chatserver import Answer, ChatServer  # noqa: E402

PAGES = ("General", "Shortcut", "Microphone", "Models", "Modes", "Providers", "Applications", "Vocabulary", "Privacy", "Statistics", "About")


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
        self.desktop.press("Tab")
        self.desktop.press("space")
        self.wait(lambda: "autoPasteEnabled=false" in ini.read_text(), 5, "the setting in the file")
        self.desktop.press("space")
        self.wait(lambda: "autoPasteEnabled=true" in ini.read_text(), 5, "the setting in the file")
        self.close(SETTINGS_TITLE)

    def test_a_search_leads_to_the_setting_itself(self):
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        ini = self.desktop.config_home / "vantro" / "vantro.ini"
        for words, keys, written in (("sound ready", ("Return",), "playSoundOnComplete=true"),
                                     ("log in", ("Down", "Up", "Return"), None)):
            self.desktop.press("ctrl+f")
            self.desktop.type_text(words)
            for key in (*keys, "space"):
                self.desktop.press(key)
            if written:
                self.wait(lambda: written in ini.read_text(), 5, written)
        autostart = self.desktop.config_home / "autostart" / "com.vantro.app.desktop"
        self.wait(autostart.exists, 5, "the start at login")
        autostart.unlink()
        self.close(SETTINGS_TITLE)

    def enter_page(self, page):
        """By keyboard, from the first page's name to the first field of that page."""
        for _ in range(PAGES.index(page)):
            self.desktop.press("Down")
        self.desktop.press("Tab")

    def test_a_replacement_made_in_the_settings_acts_on_the_next_dictation(self):
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        self.enter_page("Vocabulary")
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

    def test_a_dictation_into_a_field_of_the_settings_arrives_there(self):
        self.start_again()
        self.has_keyboard(self.window(SETTINGS_TITLE))
        self.enter_page("Vocabulary")
        self.dictate(CHILD)
        self.wait(lambda: "Setting the old content" in self.news(), 60, "the text to be fetched")
        for text in ("", "something else"):
            self.desktop.type_text(text)
            self.desktop.press("Return")
        listed = self.wait(lambda: json.loads(self.vantro.run("replacements", "list", "--json").stdout), 5, "the list")
        self.addCleanup(self.vantro.run, "replacements", "remove", listed[0]["find"])
        self.assertEqual([words(entry["find"]) for entry in listed], [CHILD_WORDS])
        self.close(SETTINGS_TITLE)

    def test_alerts_neither_get_the_text_nor_come_while_one_speaks(self):
        tell = ("--shortcut", "Ctrl+Alt+D")
        self.vantro.run(*tell)
        alert = self.wait_for_alert_saying("Press Ctrl+Alt+D")
        self.desktop.activate(alert)
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over()
        self.close_alert(alert)

        self.desktop.activate(self.editor.window)
        before = self.editor.text()
        self.vantro.open_launcher()
        self.vantro.run(*tell)
        self.speak(CHILD)
        self.assertEqual(self.vantro.alerts(), [])
        self.vantro.end_dictation()
        self.wait(lambda: words(self.editor.text()[len(before):]) == CHILD_WORDS, 60, "the text")
        self.dismiss_alert_saying("Press Ctrl+Alt+D")


class FirstStartTest(ShellCase):
    def test_onboarding_leads_to_a_dictation(self):
        self.vantro.quit()
        shutil.rmtree(self.desktop.config_home / "vantro", ignore_errors=True)
        self.vantro.start("--verbose")
        self._log_before = 0
        onboarding = self.window(ONBOARDING_TITLE)
        self.has_keyboard(onboarding)
        self.desktop.press("Return")
        self.wait(self.desktop.audio.recording_sources, 5, "the microphone to be tried")
        self.speak(CHILD)
        self.desktop.press("Return")
        self.wait(lambda: not self.desktop.audio.recording_sources(), 5, "the microphone to be closed")
        self.wait(lambda: "keystroke arrived" in self.news(), 10, "the keystroke")
        self.desktop.press("Return")
        shortcut = self.wait(lambda: self.vantro.status()["shortcut"], 5, "a proposed shortcut")
        self.desktop.press("Return")
        time.sleep(0.2)  # a person's next key
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
        server = self.enterContext(ChatServer())
        server.answer = Answer(body=json.dumps(manifest))
        self.desktop.env["VANTRO_UPDATE_MANIFEST"] = server.url
        self.addCleanup(self.desktop.env.pop, "VANTRO_UPDATE_MANIFEST")

    def test_a_newer_version_is_offered_at_the_start_until_it_is_skipped(self):
        self.serve({"version": "999.1", "url": "https://example.invalid/", "notes": "Hears better."})
        self.restart(checkForUpdatesOnLaunch=True)
        self.answer(self.wait_for_alert_saying("vantro 999.1 is available"), "Tab", "space")
        ini = self.desktop.config_home / "vantro" / "vantro.ini"
        self.wait(lambda: "skippedUpdateVersion=999.1" in ini.read_text(), 5, "the skipped version")


class SettingsFileTest(ShellCase):
    def test_a_damaged_file_is_kept_and_the_user_is_told(self):
        ini = self.desktop.config_home / "vantro" / "vantro.ini"
        self.vantro.quit()
        damaged = ini.read_text() + "holdToTalk=false\nselectedMod"
        ini.write_text(damaged)
        self.vantro.start()
        self._log_before = 0
        self.dismiss_alert_saying("Some settings could not be read")
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


if __name__ == "__main__":
    main()
